// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <optional>

namespace quor::formkit {

/// Returns the item to which a key leads from `current` in a row of `count` items that stand side by side:
/// the arrow keys to a neighbour, Home and End to the ends. Returns `nullopt` for other keys.
[[nodiscard]] std::optional<int> stepInRow(int key, int current, int count, Qt::LayoutDirection direction);

} // namespace quor::formkit
