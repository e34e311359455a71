// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Controls/MenuTimerButton.h"

#include "Platform/Resources/Tinting.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace quor::helper {

MenuTimerButton::MenuTimerButton(int tag, const QString& title, QWidget* parent)
    : MenuButton(parent)
    , tag_(tag)
{
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setTitle(title);
}

void MenuTimerButton::setTitle(const QString& title)
{
    title_ = title;
    setAccessibleName(title); // and not setText, where an ampersand makes a short cut
    updateGeometry();
    update();
}

void MenuTimerButton::setBezel(Bezel bezel)
{
    bezel_ = bezel;
    update();
}

int MenuTimerButton::padding() const
{
    return fontMetrics().height() / 2;
}

QSize MenuTimerButton::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(title_) + 2 * padding(), metrics.height() + 4};
}

QSize MenuTimerButton::minimumSizeHint() const
{
    const int threeLetters = 3 * fontMetrics().averageCharWidth();
    return {std::min(sizeHint().width(), threeLetters + 2 * padding()), sizeHint().height()};
}

void MenuTimerButton::paintEvent(QPaintEvent* /*event*/)
{
    constexpr qreal squareRadius = 3;
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal radius = bezel_ == Bezel::regularSquare ? squareRadius : frame.height() / 2;
    const QColor ink = palette().color(foregroundRole());
    const double fillAlpha = isDown() ? 0.3 : underMouse() ? 0.16 : 0.08;

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(platform::withAlpha(ink, fillAlpha));
    painter.setPen(
        hasFocus() ? QPen(palette().color(QPalette::Highlight), 2) : QPen(platform::withAlpha(ink, 0.3), 1));
    painter.drawRoundedRect(frame, radius, radius);
    const QRect room = rect().adjusted(padding() / 2, 0, -padding() / 2, 0);
    painter.setPen(ink);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(room, Qt::AlignCenter | Qt::TextSingleLine,
        fontMetrics().elidedText(title_, Qt::ElideRight, room.width()));
}

void MenuTimerButton::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        event->ignore(); // so the row handles them
        break;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

} // namespace quor::helper
