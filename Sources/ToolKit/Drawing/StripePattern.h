// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QColor>

namespace quor::toolkit {

/// Returns a brush of stripes in `color` on a clear ground. A stripe is 10 wide and leans 35 degrees to the
/// right; the pattern repeats every 60 by 50 device-independent pixels. `devicePixelRatio` is the ratio of
/// the device that the brush will paint on.
[[nodiscard]] QBrush stripePattern(const QColor& color, double devicePixelRatio = 1);

} // namespace quor::toolkit
