// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/RoundedButton/RoundedButton.h"

#include "Platform/Resources/Bundle.h"
#include "Platform/Resources/Tinting.h"
#include "ToolKit/Drawing/GraphicsContext.h"
#include "ToolKit/Drawing/ShadowPresets.h"
#include "ToolKit/Drawing/Text/SystemFont.h"
#include "ToolKit/Drawing/Text/TextDrawing.h"
#include "ToolKit/Drawing/Text/TextLayout.h"
#include "ToolKit/Markdown/MarkdownParser.h"
#include "ToolKit_macOS/RoundedButton/RoundedButtonAccessible.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QScreen>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using quor::platform::AttributedString;

namespace quor::toolkit {

namespace {

constexpr double highlightAlpha = 0.7;
constexpr double subtitleAlpha = 0.8;
constexpr double subtitleShare = 0.8;
constexpr double subtitleGap = 2;
constexpr double iconZoneMargin = 8;
constexpr int menuGap = 4;
constexpr int noTag = -1;

struct TypeLook {
    QMarginsF titleInsets;
    double fontSize = 0;
    QFont::Weight weight = QFont::Normal;
};

TypeLook lookOf(RoundedButtonType type)
{
    switch (type) {
    case RoundedButtonType::tiny:
        return {{4, 0, 4, 0}, 11, QFont::Normal};
    case RoundedButtonType::small:
        return {{8, 2, 8, 2}, 11, QFont::Normal};
    case RoundedButtonType::normal:
        return {{24, 8, 24, 8}, 12, QFont::Normal};
    case RoundedButtonType::large:
        return {{48, 18, 48, 18}, 17, QFont::Bold};
    }
    Q_UNREACHABLE();
}

// In a menu and in the text of a button a single '&' marks a shortcut.
QString withoutMnemonic(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

QImage menuArrow(qreal devicePixelRatio)
{
    static const auto resources = platform::Bundle::named(u"Cabinet_ToolKit_macOS"_s);
    return resources.image(u"ButtonDownSmall"_s, {}, devicePixelRatio);
}

QSizeF roundedUp(QSizeF size)
{
    return {std::ceil(size.width()), std::ceil(size.height())};
}

QSizeF measured(const AttributedString& text, const QFont& font)
{
    return roundedUp(TextLayout(text, font, false, unlimitedWidth).size());
}

void lay(AttributedString& text, const QFont& font)
{
    QTextCharFormat attributes;
    attributes.setFont(font);
    text.addAttributes(attributes, {0, text.length()});
}

} // namespace

RoundedButton::RoundedButton(QWidget* parent)
    : QAbstractButton(parent)
    , menu_(new QMenu(this))
{
    static const bool isInstalled = (QAccessible::installFactory(RoundedButtonAccessible::make), true);
    Q_UNUSED(isInstalled)
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    menu_->installEventFilter(this);
    connect(this, &QAbstractButton::clicked, this, &RoundedButton::handleClick);
    // Queued, since a menu closes before it says which entry was chosen.
    connect(menu_, &QMenu::aboutToHide, this, &RoundedButton::menuDidClose, Qt::QueuedConnection);
    setType(RoundedButtonType::normal);
}

template <class Value>
void RoundedButton::set(Value& field, const Value& value)
{
    field = value;
    redraw();
}

void RoundedButton::redraw()
{
    updateGeometry();
    update();
}

void RoundedButton::updateName()
{
    setText(withoutMnemonic(shownTitle()));
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
    redraw();
}

void RoundedButton::setTitle(const QString& title)
{
    attributedTitle_ = AttributedString(title);
    hasPlainTitle_ = true;
    updateName();
}

void RoundedButton::setAttributedTitle(const AttributedString& attributedTitle)
{
    attributedTitle_ = attributedTitle;
    hasPlainTitle_ = false;
    updateName();
}

void RoundedButton::setHasPlainTitle(bool hasPlainTitle)
{
    hasPlainTitle_ = hasPlainTitle;
    updateName();
}

void RoundedButton::setSubtitle(const QString& subtitle)
{
    subtitle_ = subtitle;
    hasPlainTitle_ = true;
    updateName();
}

void RoundedButton::setParseMarkdown(bool parseMarkdown)
{
    parseMarkdown_ = parseMarkdown;
    updateName();
}

void RoundedButton::setLeftImage(const QImage& leftImage)
{
    set(leftImage_, leftImage);
}

void RoundedButton::setRightImage(const QImage& rightImage)
{
    isRightImageMenuArrow_ = false;
    set(rightImage_, rightImage);
}

void RoundedButton::setType(RoundedButtonType type)
{
    type_ = type;
    const TypeLook look = lookOf(type);
    titleInsets_ = look.titleInsets;
    const QFont font = systemFont(look.fontSize, look.weight);
    setFont(font);
    menu_->setFont(font);
    redraw();
}

void RoundedButton::setTitleInsets(QMarginsF titleInsets)
{
    set(titleInsets_, titleInsets);
}

void RoundedButton::setContentSpacing(double contentSpacing)
{
    set(contentSpacing_, contentSpacing);
}

void RoundedButton::setMaintainMinWidth(bool maintainMinWidth)
{
    set(maintainMinWidth_, maintainMinWidth);
}

void RoundedButton::resetMinTitleWidth()
{
    set(currentMinTitleWidth_, 0.0);
}

void RoundedButton::setBezel(BezelType bezel)
{
    set(bezel_, bezel);
}

void RoundedButton::setCornerRadius(double cornerRadius)
{
    set(cornerRadius_, cornerRadius);
}

void RoundedButton::setHasShadow(bool hasShadow)
{
    hasShadow_ = hasShadow;
    if (hasShadow)
        applyLightShadow(*this);
    else
        removeShadow(*this);
    update();
}

void RoundedButton::setFilledTitleColor(const QColor& filledTitleColor)
{
    set(filledTitleColor_, filledTitleColor);
}

void RoundedButton::setTitleColor(const QColor& titleColor)
{
    set(titleColor_, titleColor);
}

void RoundedButton::setDisabledTitleAlpha(double disabledTitleAlpha)
{
    set(disabledTitleAlpha_, disabledTitleAlpha);
}

void RoundedButton::setButtonColor(const QColor& buttonColor)
{
    set(buttonColor_, buttonColor);
}

void RoundedButton::setDisabledButtonColor(const QColor& disabledButtonColor)
{
    set(disabledButtonColor_, disabledButtonColor);
}

void RoundedButton::setOn(bool isOn)
{
    if (isOn_ == isOn)
        return;
    isOn_ = isOn;
    QAccessible::State change;
    change.checked = true;
    QAccessibleStateChangeEvent changed(this, change);
    QAccessible::updateAccessibility(&changed);
    update();
}

void RoundedButton::setMouseOver(bool isMouseOver)
{
    isMouseOver_ = isMouseOver;
    update();
}

void RoundedButton::showMenuArrow()
{
    rightImage_ = menuArrow(devicePixelRatioF());
    isRightImageMenuArrow_ = true;
    redraw();
}

void RoundedButton::addMenuItem(const QString& title, int tag)
{
    connect(menu_->addAction(withoutMnemonic(title)), &QAction::triggered, this,
        [this, title, tag] { choose(title, tag); });
    menu_->actions().constLast()->setData(tag);
    if (rightImage_.isNull())
        showMenuArrow();
}

void RoundedButton::addMenuSeparator()
{
    menu_->addSeparator();
}

void RoundedButton::removeAllMenuItems()
{
    menu_->clear();
    setRightImage({});
}

void RoundedButton::selectMenuItem(int tag)
{
    const auto actions = menu_->actions();
    const auto found = std::find_if(actions.begin(), actions.end(),
        [&](const QAction* action) { return !action->isSeparator() && action->data() == QVariant(tag); });
    if (found != actions.end())
        setTitle((*found)->text().replace(u"&&"_s, u"&"_s));
}

QFont RoundedButton::subtitleFont() const
{
    return systemFont(subtitleShare * pixelSize(font()), QFont::DemiBold);
}

QColor RoundedButton::textColor(bool isSubtitle) const
{
    const QColor& color = isHot() ? filledTitleColor_ : titleColor_;
    if (isDown())
        return platform::withAlpha(color, highlightAlpha);
    if (isSubtitle)
        return platform::withAlpha(color, subtitleAlpha);
    return isEnabled() ? color : platform::withAlpha(color, disabledTitleAlpha_);
}

AttributedString RoundedButton::titleString(bool isSubtitle) const
{
    if (!isSubtitle && !hasPlainTitle_) {
        AttributedString text = attributedTitle_;
        lay(text, font());
        return text;
    }
    const QFont font = isSubtitle ? subtitleFont() : this->font();
    const QString text = isSubtitle ? subtitle_ : title();
    const QColor color = textColor(isSubtitle);
    if (parseMarkdown_)
        return MarkdownParser(text, font, color).parse();
    QTextCharFormat attributes;
    attributes.setFont(font);
    attributes.setForeground(color);
    return AttributedString(text, attributes);
}

QString RoundedButton::shownText(bool isSubtitle) const
{
    QString text = titleString(isSubtitle).string();
    return text.remove(QChar::ObjectReplacementCharacter);
}

QSizeF RoundedButton::textSize() const
{
    const auto sizeOf = [this](bool isSubtitle) {
        QSizeF size = measured(titleString(isSubtitle), font());
        currentMinTitleWidth_ = maintainMinWidth_ ? std::max(currentMinTitleWidth_, size.width()) : 0;
        size.setWidth(std::max(size.width(), currentMinTitleWidth_));
        return size;
    };
    const QSizeF title = sizeOf(false);
    return subtitle_.isEmpty() ? title : title.expandedTo(sizeOf(true));
}

double RoundedButton::roomFor(const QImage& image) const
{
    return image.isNull() ? 0 : image.deviceIndependentSize().width() + contentSpacing_;
}

QSizeF RoundedButton::intrinsicContentSize() const
{
    return textSize().grownBy(titleInsets_) + QSizeF(roomFor(leftImage_) + roomFor(rightImage_), 0);
}

void RoundedButton::sizeToFit()
{
    resize(sizeHint());
}

QSize RoundedButton::sizeHint() const
{
    return roundedUp(intrinsicContentSize()).toSize();
}

QSize RoundedButton::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    const double text = textSize().width();
    const double ellipsis = std::min(text, measured(AttributedString(u"…"_s), font()).width());
    return {whole.width() - static_cast<int>(text - ellipsis), whole.height()};
}

QRectF RoundedButton::mirrored(const QRectF& rect) const
{
    if (layoutDirection() == Qt::LeftToRight)
        return rect;
    return {QPointF(width() - rect.right(), rect.top()), rect.size()};
}

QRectF RoundedButton::leftView() const
{
    const QSizeF size = leftImage_.deviceIndependentSize();
    return mirrored({QPointF(titleInsets_.left(), (height() - size.height()) / 2), size});
}

QRectF RoundedButton::rightView() const
{
    const QSizeF size = rightImage_.deviceIndependentSize();
    return mirrored(
        {QPointF(width() - size.width() - titleInsets_.right(), (height() - size.height()) / 2), size});
}

QRectF RoundedButton::textRect() const
{
    return mirrored(QRectF(rect()).adjusted(
        titleInsets_.left() + roomFor(leftImage_), 0, -titleInsets_.right() - roomFor(rightImage_), 0));
}

void RoundedButton::paintEvent(QPaintEvent* /*event*/)
{
    if (isRightImageMenuArrow_ && rightImage_.devicePixelRatio() != devicePixelRatioF())
        rightImage_ = menuArrow(devicePixelRatioF());
    QPainter painter(this);
    drawShape(painter);
    const QColor iconColor = isHot() ? filledTitleColor_ : titleColor_;
    for (const auto& [image, rect] :
        {std::pair(&leftImage_, leftView()), std::pair(&rightImage_, rightView())}) {
        if (!image->isNull())
            painter.drawImage(rect, platform::tinted(*image, iconColor, platform::Tint::coversColors));
    }
    drawTexts(painter);
    if (hasFocus())
        drawFocus(painter);
}

void RoundedButton::drawShape(QPainter& painter) const
{
    if (bezel_ == BezelType::none || (bezel_ == BezelType::mouseOverFill && !isHot()))
        return;
    const QColor color = isEnabled() ? buttonColor_ : disabledButtonColor_;
    const double radius = cornerRadius_ < 0 ? height() / 2.0 : cornerRadius_;
    drawRoundedRect(
        painter, isDown() ? platform::withAlpha(color, highlightAlpha) : color, true, radius, rect());
}

void RoundedButton::drawFocus(QPainter& painter) const
{
    // In the colour of the title, which stands out from each fill, and not through the title.
    const double inset = std::clamp(titleInsets_.top(), 0.5, 2.0);
    const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    const double radius = cornerRadius_ < 0 ? height() / 2.0 : cornerRadius_;
    drawRoundedRect(painter, textColor(false), false, std::max(radius - inset, 0.0), ring);
}

void RoundedButton::drawTexts(QPainter& painter) const
{
    (void)textSize(); // notes the widest title
    const QRectF room = textRect();
    if (room.width() <= 0)
        return;
    painter.setPen(palette().color(QPalette::WindowText)); // for attributed text without a colour
    const auto draw = [&](bool isSubtitle, auto top) {
        const TextLayout layout(titleString(isSubtitle), font(), false, room.width());
        const double y = top(std::ceil(layout.size().height()));
        layout.draw(painter, {room.left(), y}, room.width(), Qt::AlignHCenter);
    };
    const double middle = height() / 2.0;
    if (subtitle_.isEmpty())
        return draw(false, [&](double titleHeight) { return middle - titleHeight / 2; });
    draw(false, [&](double titleHeight) { return middle - titleHeight; });
    draw(true, [&](double) { return middle + subtitleGap; });
}

void RoundedButton::handleClick()
{
    if (!isEnabled())
        return;
    if (fullWidthMenuAction_) {
        (void)openMenu();
        return;
    }
    const QRectF point(pressedX_.value_or(0), 0, 0, 0);
    const double x = mirrored(point).x();
    update();
    if (pressedX_ && !leftImage_.isNull() && x < mirrored(leftView()).right() + iconZoneMargin)
        return clickedHandler_(*this, ClickType::left, noTag);
    if (pressedX_ && !rightImage_.isNull() && x > mirrored(rightView()).left() - iconZoneMargin)
        return clickedHandler_(*this, ClickType::right, noTag);
    if (!openMenu())
        return clickedHandler_(*this, ClickType::middle, noTag);
    reportsClosedMenu_ = true;
}

bool RoundedButton::openMenu()
{
    if (menu_->isEmpty() || !isVisible())
        return false;
    const QSize size = menu_->sizeHint();
    const int x = layoutDirection() == Qt::LeftToRight ? 0 : width() - size.width();
    const QPoint below = mapToGlobal(QPoint(x, height() + menuGap));
    const QPoint above = mapToGlobal(QPoint(x, -menuGap - size.height()));
    const QRect available = screen()->availableGeometry();
    const bool fitsBelow = below.y() + size.height() <= available.bottom() + 1;
    menu_->popup(fitsBelow || above.y() < available.top() ? below : above);
    return true;
}

void RoundedButton::choose(const QString& title, int tag)
{
    isMouseOver_ = false;
    setTitle(title);
    clickedHandler_(*this, ClickType::middle, tag);
}

void RoundedButton::menuDidClose()
{
    update();
    if (std::exchange(reportsClosedMenu_, false))
        clickedHandler_(*this, ClickType::middle, noTag);
}

bool RoundedButton::eventFilter(QObject* watched, QEvent* event)
{
    // A press on the button closes the menu, and must not open it again.
    if (watched == menu_ && event->type() == QEvent::MouseButtonPress) {
        const QPoint place = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
        menu_->setAttribute(Qt::WA_NoMouseReplay, rect().contains(mapFromGlobal(place)));
    }
    return QAbstractButton::eventFilter(watched, event);
}

void RoundedButton::changeEvent(QEvent* event)
{
    QAbstractButton::changeEvent(event);
    redraw();
}

void RoundedButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    setMouseOver(true);
}

void RoundedButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    setMouseOver(false);
}

void RoundedButton::hideEvent(QHideEvent* event)
{
    QAbstractButton::hideEvent(event);
    setMouseOver(false);
}

void RoundedButton::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier))
        (void)openMenu();
    else if (!isReturn)
        QAbstractButton::keyPressEvent(event);
    else if (!event->isAutoRepeat()) // a key that is held down presses once
        QAbstractButton::click();
}

void RoundedButton::mousePressEvent(QMouseEvent* event)
{
    pressedX_ = event->position().x();
    QAbstractButton::mousePressEvent(event);
}

void RoundedButton::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<RoundedButton> button(this);
    QAbstractButton::mouseReleaseEvent(event);
    if (button)
        pressedX_.reset();
}

} // namespace quor::toolkit
