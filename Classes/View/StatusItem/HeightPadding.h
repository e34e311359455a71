// SPDX-License-Identifier: MIT
#pragma once

namespace quor::helper {

/// How many device-independent pixels the status item's pill is lower than the status bar.
enum class HeightPadding {
    single, ///< one line of text
    double_, ///< two lines of text
};

/// Returns the padding in device-independent pixels.
[[nodiscard]] constexpr double rawValue(HeightPadding padding)
{
    return padding == HeightPadding::single ? 6.0 : 1.0;
}

} // namespace quor::helper
