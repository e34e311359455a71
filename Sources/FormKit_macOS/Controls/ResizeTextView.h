// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/FirstBaseline.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Text/AttributedString.h"

#include <QColor>
#include <QTextBrowser>
#include <QUrl>

#include <map>

namespace quor::formkit {

/// A read-only text that wraps to its width, and is as high as it needs then. It has no background, and
/// leaves the wheel to its container.
///
/// The text can be selected with the mouse. Links are in the accent colour; the Tab key goes from link to
/// link, and Return and Space open the link that has the focus. Without a link, the Tab key passes by. Plain
/// text is never taken for HTML. Main thread only.
class ResizeTextView final : public QTextBrowser, public FirstBaselineProvider {
    Q_OBJECT

public:
    enum class Color {
        text,
        secondaryText ///< fainter than `text`
    };

    explicit ResizeTextView(QWidget* parent = nullptr);

    /// `parseMarkdown` says whether `text` may contain Markdown marks.
    void setContent(const QString& text, bool parseMarkdown);
    /// The text as it is shown, without its marks.
    [[nodiscard]] const QString& shownText() const { return content_.string(); }
    [[nodiscard]] bool hasLinks() const { return hasLinks_; }

    /// Colours that follow the palette. `text` at first.
    void setColor(Color color);
    /// A colour that stays. An invalid one restores the colour that follows the palette.
    void setFixedColor(const QColor& color);
    /// The size in proportion to that of the widget's font, and the weight. 1 and normal at first.
    void setFontScale(double factor, QFont::Weight weight = QFont::Normal);
    /// Horizontal. Left and right change sides in a right-to-left layout. Left at first.
    void setTextAlignment(Qt::Alignment alignment);
    /// Whether the user can select text with the mouse. If not, clicks emit `clicked`. True at first.
    void setSelectable(bool selectable);

    /// Called with the destination of a link that the user opens. It may delete the view later.
    using LinkClicked = platform::Callback<void(const QUrl&)>;
    void setLinkClicked(LinkClicked linkClicked) { linkClicked_ = std::move(linkClicked); }

    [[nodiscard]] int firstBaseline() const override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    /// The width of the text in one line, up to some sixty characters, and the height that fits to it.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has clicked the text, and no link in it. Only if the text cannot be selected.
    void clicked();

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] QFont scaledTextFont() const;
    [[nodiscard]] QColor resolvedColor() const;
    void render();
    void insert(QTextCursor& cursor, const platform::AttributedString::Run& run);
    void updateInteraction();
    void clearSelection();
    /// The number of links that begin before a place in the document.
    [[nodiscard]] int linksBefore(int position) const;
    void focusLink(int index);
    [[nodiscard]] QUrl focusedLink() const;
    [[nodiscard]] bool pressesText(const QMouseEvent& event) const;

    QString source_;
    bool parseMarkdown_ = false;
    platform::AttributedString content_;
    bool hasLinks_ = false;
    Color color_ = Color::text;
    QColor fixedColor_;
    double fontFactor_ = 1;
    QFont::Weight fontWeight_ = QFont::Normal;
    Qt::Alignment alignment_ = Qt::AlignLeft;
    bool isSelectable_ = true;
    LinkClicked linkClicked_;
    bool isLinkFocused_ = false; ///< then it is the selection of the text cursor
    bool isTextPressed_ = false;
    mutable std::map<int, int> heights_; ///< by width, of the present text
};

} // namespace quor::formkit
