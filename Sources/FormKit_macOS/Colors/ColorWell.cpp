// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Colors/ColorWell.h"

#include "FormKit_macOS/Colors/ColorName.h"
#include "FormKit_macOS/Controls/ElidedText.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Resources/Tinting.h"

#include <QEvent>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace quor::formkit {

ColorWell::ColorWell(QWidget* parent)
    : QPushButton(parent)
{
    setAutoDefault(true); // Return presses it
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // Never painted; the name for screen readers in a row without a label.
    setText(FormMacOSResource::localizedString(u"FormColorWell"_s));
    connect(this, &QAbstractButton::clicked, this, &ColorWell::openChooser);
    setColor({});
}

void ColorWell::setColor(const QColor& color)
{
    color_ = color;
    setAccessibleDescription(colorName(color));
    setToolTip(plainToolTip(colorNameAndValue(color)));
    update();
}

void ColorWell::openChooser()
{
    if (!isVisible() || !isEnabled())
        return;
    if (!chooser_ || chooser_->isHidden()) {
        chooser_ = new ColorChooser(color_, *this);
        // Later, as the dialog still needs itself after it has reported the colour.
        connect(chooser_, &QColorDialog::colorSelected, this, &ColorWell::colorChosen, Qt::QueuedConnection);
    }
    chooser_->present();
}

void ColorWell::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled() && chooser_)
        chooser_->close();
}

QSize ColorWell::sizeHint() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear(); // styles have a least width for buttons with a text
    const QSize text(0, fontMetrics().height());
    const int height = style()->sizeFromContents(QStyle::CT_PushButton, &option, text, this).height();
    return {height * 3 / 2, height};
}

void ColorWell::paintEvent(QPaintEvent*)
{
    constexpr double inset = 5, radius = 2, outline = 0.35, faint = 0.4;
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : faint);
    const QColor line = palette().color(QPalette::Active, QPalette::ButtonText);
    const QRectF area = QRectF(rect()).marginsRemoved({inset + 0.5, inset + 0.5, inset + 0.5, inset + 0.5});
    painter.setPen(platform::withAlpha(line, outline));
    painter.setBrush(color_.isValid() ? QBrush(color_) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(area, radius, radius);
    if (!color_.isValid())
        painter.drawLine(area.bottomLeft(), area.topRight());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

} // namespace quor::formkit
