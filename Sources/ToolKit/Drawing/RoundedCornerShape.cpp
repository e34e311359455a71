// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/RoundedCornerShape.h"

namespace quor::toolkit {

QPainterPath RoundedCornerShape::path(const QRectF& rect) const
{
    const double right = rect.width();
    const double bottom = rect.height();
    QPainterPath path(QPointF(right, 0));
    const auto corner = [&](RectCorner which, QPointF before, QPointF tip, QPointF after) {
        if (corners.testFlag(which)) {
            path.lineTo(before);
            path.quadTo(tip, after);
        } else {
            path.lineTo(tip);
        }
    };
    corner(RectCorner::topRight, {right - radius, 0}, {right, 0}, {right, radius});
    corner(RectCorner::bottomRight, {right, bottom - radius}, {right, bottom}, {right - radius, bottom});
    corner(RectCorner::bottomLeft, {radius, bottom}, {0, bottom}, {0, bottom - radius});
    corner(RectCorner::topLeft, {0, radius}, {0, 0}, {radius, 0});
    return path;
}

} // namespace quor::toolkit
