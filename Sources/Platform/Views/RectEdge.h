// SPDX-License-Identifier: MIT
#pragma once

namespace quor::platform {

/// An edge of a rectangle, with y growing downwards: `minY` is the upper edge, `maxY` the lower one.
enum class RectEdge { minX = 0, minY = 1, maxX = 2, maxY = 3 };

} // namespace quor::platform
