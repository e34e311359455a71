// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/RoundedCornerShape.h"

namespace quor::toolkit {

QPainterPath RoundedCornerShape::path(const QRectF& rect) const
{
    const double w = rect.width();
    const double h = rect.height();
    const double r = radius;
    QPainterPath path(QPointF(w, 0));
    const auto corner = [&](RectCorner which, QPointF before, QPointF tip, QPointF after) {
        if (corners.testFlag(which)) {
            path.lineTo(before);
            path.quadTo(tip, after);
        } else {
            path.lineTo(tip);
        }
    };
    corner(RectCorner::topRight, {w - r, 0}, {w, 0}, {w, r});
    corner(RectCorner::bottomRight, {w, h - r}, {w, h}, {w - r, h});
    corner(RectCorner::bottomLeft, {r, h}, {0, h}, {0, h - r});
    corner(RectCorner::topLeft, {0, r}, {0, 0}, {r, 0});
    return path;
}

} // namespace quor::toolkit
