// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/AttributedString.h"

#include <QPushButton>
#include <QTimer>

#include <optional>

namespace quor::toolkit {
class SyncSpinner;
}

namespace quor::formkit {

/// A push button that can show that work goes on. Its title is one line of plain or attributed text, without
/// keyboard mnemonics, and ends with an ellipsis where it does not fit; a tool tip shows the whole then. The
/// Return key presses it while it has the focus. Main thread only.
class LargerButton final : public QPushButton {
    Q_OBJECT

public:
    explicit LargerButton(QWidget* parent = nullptr);

    /// Line breaks are shown as spaces. `parseMarkdown` says whether the title may contain Markdown marks.
    void setTitle(const QString& title, bool parseMarkdown = false);

    /// Where the title of a button without a frame stands, if the button is wider. Left at first; left and
    /// right change sides in a right-to-left layout.
    void setFlatAlignment(Qt::Alignment alignment);

    /// While it is shown, the button is disabled, and a spinner turns right of the title. Its end enables the
    /// button.
    [[nodiscard]] bool showProgress() const { return showProgress_; }
    void setShowProgress(bool showProgress);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QSize titleSize() const;
    [[nodiscard]] QSize sizeFor(QSize content) const;
    [[nodiscard]] QRect titleRect() const; ///< the contents without the room for the spinner
    [[nodiscard]] int spinnerRoom() const;
    void updateTitle();
    void placeSpinner();
    void paintTitle(QPainter& painter, const QStyleOptionButton& option) const;
    void paintAttributed(
        QPainter& painter, const platform::AttributedString& text, Qt::Alignment alignment) const;

    QString title_; ///< in one line, with its marks
    bool parseMarkdown_ = false;
    std::optional<platform::AttributedString> attributedTitle_; ///< if `parseMarkdown_`
    Qt::Alignment flatAlignment_ = Qt::AlignLeft;
    bool showProgress_ = false;
    toolkit::SyncSpinner* progressSpinner_ = nullptr; ///< made when it is first shown
    QTimer spinnerStart_;
};

} // namespace quor::formkit
