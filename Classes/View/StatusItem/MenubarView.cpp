// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarView.h"

#include "ToolKit/Drawing/GraphicsContext.h"

namespace quor::helper {

MenubarView::MenubarView(double diameter, int tag, QWidget* parent)
    : MenubarElement(tag, parent)
    , diameter_(diameter)
{
}

void MenubarView::setBackground(const QColor& color)
{
    if (color == background_)
        return;
    background_ = color;
    update();
}

void MenubarView::draw(QPainter& painter) const
{
    if (background_)
        toolkit::drawOval(painter, *background_, true, std::nullopt, QRectF({}, frame().size()));
}

} // namespace quor::helper
