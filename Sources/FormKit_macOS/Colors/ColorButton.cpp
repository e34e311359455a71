// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Colors/ColorButton.h"

#include "FormKit_macOS/Colors/ColorName.h"
#include "FormKit_macOS/Controls/ElidedText.h"
#include "FormKit_macOS/Controls/ToggleAccessible.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Resources/Tinting.h"
#include "ToolKit/Colors/ColorOperations.h"

#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace quor::formkit {

namespace {

constexpr double swatchInset = 4; // with room for the ring
constexpr double ringInset = 1.25;
constexpr double ringWidth = 1.5;

class ColorButtonAccessible final : public ToggleAccessible {
public:
    explicit ColorButtonAccessible(ColorButton& button)
        : ToggleAccessible(button, QAccessible::RadioButton)
    {
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = ToggleAccessible::state();
        state.focusable = true;
        state.focused = static_cast<const ColorButton&>(button()).isCurrent();
        return state;
    }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    auto* const button = qobject_cast<ColorButton*>(object);
    return button ? new ColorButtonAccessible(*button) : nullptr;
}

} // namespace

ColorButton::ColorButton(QWidget* parent)
    : QAbstractButton(parent)
{
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

void ColorButton::setColor(const QColor& color)
{
    color_ = color;
    if (colorImage_.isEmpty()) {
        setAccessibleName(colorName(color));
        setToolTip(plainToolTip(colorNameAndValue(color)));
    }
    update();
}

void ColorButton::setColorImage(const QString& name)
{
    colorImage_ = name;
    update();
}

void ColorButton::setTitle(const QString& title)
{
    setAccessibleName(title);
    setToolTip(plainToolTip(title));
}

void ColorButton::setCurrent(bool isCurrent)
{
    isCurrent_ = isCurrent;
    update();
}

QSize ColorButton::sizeHint() const
{
    QStyleOptionButton option;
    option.initFrom(this);
    const QSize text(0, fontMetrics().height());
    const int side = style()->sizeFromContents(QStyle::CT_PushButton, &option, text, this).height();
    return {side, side};
}

void ColorButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    constexpr double faint = 0.4;
    painter.setOpacity(isEnabled() ? 1 : faint);
    const QRectF cell(rect());
    const QRectF swatch = cell.marginsRemoved({swatchInset, swatchInset, swatchInset, swatchInset});
    paintSwatch(painter, swatch);
    const QColor line = palette().color(QPalette::Active, QPalette::WindowText);
    constexpr double outline = 0.35, pointedAt = 0.8;
    painter.setPen(platform::withAlpha(line, underMouse() && isEnabled() ? pointedAt : outline));
    painter.drawEllipse(swatch);
    if (isChecked()) {
        painter.setPen(QPen(line, ringWidth));
        painter.drawEllipse(cell.marginsRemoved({ringInset, ringInset, ringInset, ringInset}));
        paintMark(painter, swatch);
    }
    if (isCurrent_) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void ColorButton::paintSwatch(QPainter& painter, const QRectF& swatch) const
{
    if (colorImage_.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color_);
        painter.drawEllipse(swatch);
    } else {
        painter.drawImage(swatch,
            FormMacOSResource::resourceBundle().image(colorImage_, swatch.size(), devicePixelRatioF()));
    }
    painter.setBrush(Qt::NoBrush);
}

void ColorButton::paintMark(QPainter& painter, const QRectF& swatch) const
{
    constexpr double strokeShare = 0.13, middle = 0.5;
    QColor below = color_;
    if (!colorImage_.isEmpty() && color_.isValid()) {
        // The image shows all colours, this part of it the one that was chosen.
        const double inset = swatch.width() / 5;
        painter.setPen(Qt::NoPen);
        painter.setBrush(color_);
        painter.drawEllipse(swatch.marginsRemoved({inset, inset, inset, inset}));
        painter.setBrush(Qt::NoBrush);
    }
    below.setAlpha(255);
    painter.setPen(QPen(toolkit::contrastColor(below, Qt::white, Qt::black, middle),
        swatch.width() * strokeShare, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) {
        return QPointF(swatch.left() + x * swatch.width(), swatch.top() + y * swatch.height());
    };
    painter.drawPolyline(QPolygonF({at(0.3, 0.53), at(0.45, 0.67), at(0.7, 0.36)}));
}

} // namespace quor::formkit
