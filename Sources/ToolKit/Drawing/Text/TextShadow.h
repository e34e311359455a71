// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

#include <functional>

class QPainter;

namespace quor::toolkit {

/// Draws the soft shadow, in `color`, of the shapes that `draw` draws within `area`: blurred by 2
/// device-independent pixels, without an offset. `draw` gets another painter with the same coordinates, pen
/// and font, and may leave any state behind. Only the visible part of the area costs time.
void drawSoftShadow(
    QPainter& painter, const QRectF& area, const QColor& color, const std::function<void(QPainter&)>& draw);

} // namespace quor::toolkit
