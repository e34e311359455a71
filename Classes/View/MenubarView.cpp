// SPDX-License-Identifier: MIT
#include "View/MenubarView.h"

#include "ToolKit/Drawing/GraphicsContext.h"
#include "ToolKit/Drawing/SystemFont.h"

#include <QFontMetricsF>

#include <cmath>

namespace quor::helper {

MenubarView::MenubarView(int tag, QWidget* parent)
    : MenubarElement(tag, parent)
{
}

double MenubarView::diameter()
{
    constexpr double textSize = 11;
    return std::ceil(QFontMetricsF(toolkit::systemFont(textSize, QFont::Medium)).capHeight() * 1.2);
}

QSizeF MenubarView::fittingSize() const
{
    const double side = diameter();
    return {side, side};
}

void MenubarView::draw(QPainter& painter) const
{
    if (background_)
        toolkit::drawOval(painter, *background_, true, std::nullopt, QRectF({}, frame().size()));
}

} // namespace quor::helper
