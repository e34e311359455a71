// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Text/AttributedString.h"

#include <QAbstractButton>
#include <QColor>
#include <QImage>
#include <QMarginsF>

#include <optional>

class QMenu;

namespace quor::toolkit {

/// The zone of a button that was clicked.
enum class ClickType {
    left, ///< the left icon and 8 pixels beside it
    right, ///< the right icon and 8 pixels beside it
    middle, ///< the rest, an entry of the menu, or the keyboard
};

/// When the shape of a button is filled.
enum class BezelType { filled, mouseOverFill, none };

/// The font and the title insets of a button.
enum class RoundedButtonType { tiny, small, normal, large };

/// A push button that is drawn without the desktop's style: a rounded shape, a title of one line with a
/// subtitle below it, an icon at each end, and a menu. Space and Return press it, Alt+Down opens its menu.
///
/// Lengths are in device-independent pixels. Where a member says left, it is right in a right-to-left layout,
/// and vice versa. A title that is too wide loses its middle to an ellipsis. Main thread only.
class RoundedButton final : public QAbstractButton {
    Q_OBJECT

public:
    /// The number is the tag of the menu's entry that was chosen, or -1.
    using ClickedHandler = platform::Callback<void(RoundedButton&, ClickType, int)>;

    explicit RoundedButton(QWidget* parent = nullptr);

    /// Called for each click: a press and a release inside. A click beside the icons opens the menu if it has
    /// entries; then it is called after the menu has closed: first for the entry, if one was chosen, then for
    /// the click. Not called for clicks that `fullWidthMenuAction` lets open the menu, only for entries. The
    /// handler may delete the button.
    void setClickedHandler(ClickedHandler clickedHandler) { clickedHandler_ = std::move(clickedHandler); }

    /// The title, without attributes. Setting it makes `hasPlainTitle` true.
    [[nodiscard]] QString title() const { return attributedTitle_.string(); }
    void setTitle(const QString& title);

    /// Setting it makes `hasPlainTitle` false.
    [[nodiscard]] const platform::AttributedString& attributedTitle() const { return attributedTitle_; }
    void setAttributedTitle(const platform::AttributedString& attributedTitle);

    /// Whether the title is drawn in the button's colours. Otherwise it keeps its own attributes, except for
    /// the font; text without a colour has that of the palette. Initially true.
    [[nodiscard]] bool hasPlainTitle() const { return hasPlainTitle_; }
    void setHasPlainTitle(bool hasPlainTitle);

    /// The second line, smaller and paler. Setting it makes `hasPlainTitle` true.
    [[nodiscard]] QString subtitle() const { return subtitle_; }
    void setSubtitle(const QString& subtitle);

    /// Whether a plain title and the subtitle may contain the marks that `MarkdownParser` knows. Initially
    /// false.
    [[nodiscard]] bool parseMarkdown() const { return parseMarkdown_; }
    void setParseMarkdown(bool parseMarkdown);

    /// Title and subtitle as they are shown: without marks and icons.
    [[nodiscard]] QString shownTitle() const { return shownText(false); }
    [[nodiscard]] QString shownSubtitle() const { return shownText(true); }

    /// Images at the ends, of which only the alpha matters: they are tinted in the colour of the title. A
    /// null image is none.
    [[nodiscard]] const QImage& leftImage() const { return leftImage_; }
    void setLeftImage(const QImage& leftImage);
    [[nodiscard]] const QImage& rightImage() const { return rightImage_; }
    void setRightImage(const QImage& rightImage);

    /// Sets `titleInsets` and the font, also that of the menu. Initially `normal`.
    [[nodiscard]] RoundedButtonType type() const { return type_; }
    void setType(RoundedButtonType type);

    /// Between the edges and the content.
    [[nodiscard]] QMarginsF titleInsets() const { return titleInsets_; }
    void setTitleInsets(QMarginsF titleInsets);
    /// Between an icon and the text. Initially 5.
    [[nodiscard]] double contentSpacing() const { return contentSpacing_; }
    void setContentSpacing(double contentSpacing);

    /// Whether the button stays as wide as its widest title so far. Initially false.
    [[nodiscard]] bool maintainMinWidth() const { return maintainMinWidth_; }
    void setMaintainMinWidth(bool maintainMinWidth);
    /// The width of the widest text that was measured while `maintainMinWidth` was true.
    [[nodiscard]] double currentMinTitleWidth() const { return currentMinTitleWidth_; }
    void resetMinTitleWidth();

    [[nodiscard]] BezelType bezel() const { return bezel_; }
    void setBezel(BezelType bezel);
    /// A negative radius, the initial one, is half of the height.
    [[nodiscard]] double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double cornerRadius);
    /// Initially false. The shadow replaces another graphics effect of the button.
    [[nodiscard]] bool hasShadow() const { return hasShadow_; }
    void setHasShadow(bool hasShadow);

    /// The colour of title and icons while the button `isHot`; white at first.
    [[nodiscard]] QColor filledTitleColor() const { return filledTitleColor_; }
    void setFilledTitleColor(const QColor& filledTitleColor);
    /// The colour of title and icons otherwise; white at first.
    [[nodiscard]] QColor titleColor() const { return titleColor_; }
    void setTitleColor(const QColor& titleColor);
    /// The alpha of a plain title while the button is disabled. Initially 0.5.
    [[nodiscard]] double disabledTitleAlpha() const { return disabledTitleAlpha_; }
    void setDisabledTitleAlpha(double disabledTitleAlpha);
    /// The fill of an enabled button; white at first.
    [[nodiscard]] QColor buttonColor() const { return buttonColor_; }
    void setButtonColor(const QColor& buttonColor);
    /// The fill of a disabled button; grey (0x848484) at first.
    [[nodiscard]] QColor disabledButtonColor() const { return disabledButtonColor_; }
    void setDisabledButtonColor(const QColor& disabledButtonColor);

    /// A lasting highlight, which screen readers take for a mark.
    [[nodiscard]] bool isOn() const { return isOn_; }
    void setOn(bool isOn);
    /// Whether the pointer is inside. False after an entry of the menu was chosen, until the pointer enters.
    [[nodiscard]] bool isMouseOver() const { return isMouseOver_; }
    [[nodiscard]] bool isHot() const { return isMouseOver_ || isOn_; }

    /// Whether a click anywhere opens the menu, without a report. Initially false.
    [[nodiscard]] bool fullWidthMenuAction() const { return fullWidthMenuAction_; }
    void setFullWidthMenuAction(bool fullWidthMenuAction) { fullWidthMenuAction_ = fullWidthMenuAction; }
    /// Appends an entry. Choosing it makes its title that of the button. If the button has no right image,
    /// the image becomes an arrow that points down.
    void addMenuItem(const QString& title, int tag);
    void addMenuSeparator();
    /// Also removes the right image.
    void removeAllMenuItems();
    /// Makes the title of the first entry with this tag that of the button. Ignored if there is none.
    void selectMenuItem(int tag);
    /// Owned by the button.
    [[nodiscard]] QMenu& menu() const { return *menu_; }

    /// The size that shows all of the content.
    [[nodiscard]] QSizeF intrinsicContentSize() const;
    /// Gives the button its intrinsic size, rounded up, at its place.
    void sizeToFit();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Opens the menu below the button, or above it if there is no room. Ignored if the menu is empty.
    /// Returns whether it is open.
    bool openMenu();

protected:
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    template <class Value>
    void set(Value& field, const Value& value);
    void redraw();
    void updateName();
    void setMouseOver(bool isMouseOver);
    void showMenuArrow();

    [[nodiscard]] QFont subtitleFont() const;
    [[nodiscard]] QColor textColor(bool isSubtitle) const;
    [[nodiscard]] platform::AttributedString titleString(bool isSubtitle) const;
    [[nodiscard]] QString shownText(bool isSubtitle) const;
    [[nodiscard]] QSizeF textSize() const;
    [[nodiscard]] double roomFor(const QImage& image) const; ///< in a row with the text
    /// Rectangles of the content; mirrored in a right-to-left layout.
    [[nodiscard]] QRectF leftView() const;
    [[nodiscard]] QRectF rightView() const;
    [[nodiscard]] QRectF textRect() const;
    [[nodiscard]] QRectF mirrored(const QRectF& rect) const;

    void drawShape(QPainter& painter) const;
    void drawFocus(QPainter& painter) const;
    void drawTexts(QPainter& painter) const;

    void handleClick();
    void choose(const QString& title, int tag);
    void menuDidClose();

    ClickedHandler clickedHandler_;
    platform::AttributedString attributedTitle_;
    bool hasPlainTitle_ = true;
    QString subtitle_;
    bool parseMarkdown_ = false;
    QImage leftImage_;
    QImage rightImage_;
    bool isRightImageMenuArrow_ = false;
    RoundedButtonType type_ = RoundedButtonType::normal;
    QMarginsF titleInsets_;
    double contentSpacing_ = 5;
    bool maintainMinWidth_ = false;
    mutable double currentMinTitleWidth_ = 0; ///< a result of measuring
    BezelType bezel_ = BezelType::filled;
    double cornerRadius_ = -1;
    bool hasShadow_ = false;
    QColor filledTitleColor_ = Qt::white;
    QColor titleColor_ = Qt::white;
    double disabledTitleAlpha_ = 0.5;
    QColor buttonColor_ = Qt::white;
    QColor disabledButtonColor_{0x84, 0x84, 0x84};
    bool isOn_ = false;
    bool isMouseOver_ = false;
    bool fullWidthMenuAction_ = false;
    QMenu* menu_;
    bool reportsClosedMenu_ = false; ///< the click that opened the menu is to be reported
    std::optional<double> pressedX_; ///< while a button of the mouse is down
};

} // namespace quor::toolkit
