// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarView.h"

#include "ToolKit/Drawing/GraphicsContext.h"

namespace quor::helper {

void MenubarView::draw(QPainter& painter, QSizeF size) const
{
    toolkit::drawOval(painter, background_, true, std::nullopt, QRectF({}, size));
}

} // namespace quor::helper
