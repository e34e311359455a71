// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

#include <functional>

class QPainter;

namespace quor::toolkit {

/// The soft shadow, in `color`, of what `draw` draws within `area`: blurred by 2 device-independent
/// pixels and cast right below. `draw` gets a painter of the same coordinates, pen and font, and
/// may leave any state behind. Costs no more than what is visible.
void drawSoftShadow(
    QPainter& painter, const QRectF& area, const QColor& color, const std::function<void(QPainter&)>& draw);

} // namespace quor::toolkit
