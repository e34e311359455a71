// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QColor>

namespace quor::toolkit {

/// A brush of stripes in `color` on a clear ground, 10 wide and leaning 35 degrees to the right of
/// upright, repeated every 60 by 50. `devicePixelRatio` is that of what will be painted on.
[[nodiscard]] QBrush stripePattern(const QColor& color, double devicePixelRatio = 1);

} // namespace quor::toolkit
