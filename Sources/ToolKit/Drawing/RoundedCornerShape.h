// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Drawing/RectCorners.h"

#include <QPainterPath>
#include <QRectF>

namespace quor::toolkit {

/// A rectangle with some round corners, as for the first and the last of joined buttons.
struct RoundedCornerShape {
    double radius = 0;
    RectCorners corners;

    /// Returns the outline to fill. It is not for stroking, because the path does not contain the top edge;
    /// a fill closes it. Only the size of `rect` is used: the outline always lies at (0, 0), and the caller
    /// moves it. With a radius above half of a side, corners overlap.
    [[nodiscard]] QPainterPath path(const QRectF& rect) const;
};

} // namespace quor::toolkit
