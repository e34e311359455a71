// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarElement.h"

#include <QPainter>

namespace quor::helper {

MenubarElement::MenubarElement(int tag, QWidget* parent)
    : QWidget(parent)
    , tag_(tag)
{
    // Until it is placed: a cut-out never is. When a widget goes, Qt paints the room that it had anew,
    // even if it was hidden.
    resize(0, 0);
}

void MenubarElement::place(QPointF origin)
{
    // One more around it: at a fractional scale the window clips widgets in the middle of a pixel.
    const QRect wholePixels = frame_.translated(origin).toAlignedRect().adjusted(-1, -1, 1, 1);
    origin_ = origin - wholePixels.topLeft();
    setGeometry(wholePixels);
}

void MenubarElement::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.translate(origin_ + frame_.topLeft());
    draw(painter);
}

} // namespace quor::helper
