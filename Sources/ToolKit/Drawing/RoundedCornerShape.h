// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Drawing/RectCorners.h"

#include <QPainterPath>
#include <QRectF>

namespace quor::toolkit {

/// A rectangle of which only some corners are round, as for the first and last of joined buttons.
struct RoundedCornerShape {
    double radius = 0;
    RectCorners corners;

    /// The outline, for filling: its top edge is left to the fill to close. It takes only the size
    /// of `rect`, so that it always lies at (0, 0) and whoever draws it moves it. A radius above
    /// half of a side makes corners overlap.
    [[nodiscard]] QPainterPath path(const QRectF& rect) const;
};

} // namespace quor::toolkit
