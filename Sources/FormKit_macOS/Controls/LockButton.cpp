// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/LockButton.h"

#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Resources/Tinting.h"

#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace quor::formkit {

LockButton::LockButton(const QString& title, QWidget* parent)
    : QToolButton(parent)
{
    setCheckable(true);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setToolTip(title);
    setAccessibleName(title);
}

QSize LockButton::sizeHint() const
{
    const int side = QToolButton::sizeHint().height();
    return {side, side};
}

void LockButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QToolButton::keyPressEvent(event);
    else if (!event->isAutoRepeat()) // a key that is held down presses once
        click();
}

void LockButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    // The padlock says it; a frame that is down would say it twice.
    option.state.setFlag(QStyle::State_On, false);
    if (!isDown())
        option.state.setFlag(QStyle::State_Sunken, false);
    painter.drawComplexControl(QStyle::CC_ToolButton, option);

    const int side = fontMetrics().height();
    const QImage image = FormMacOSResource::resourceBundle().image(
        isChecked() ? u"LockClosed"_s : u"LockOpen"_s, QSizeF(side, side), devicePixelRatioF());
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    QRectF place({}, image.deviceIndependentSize());
    place.moveCenter(QRectF(rect()).center());
    painter.drawImage(place.topLeft(), platform::tinted(image, palette().color(group, QPalette::WindowText)));
}

} // namespace quor::formkit
