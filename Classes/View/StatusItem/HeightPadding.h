// SPDX-License-Identifier: MIT
#pragma once

namespace quor::helper {

/// How much lower than the status bar the status item's pill is, in device-independent pixels.
enum class HeightPadding {
    single, ///< one line of text
    double_, ///< two lines of text
};

[[nodiscard]] constexpr double rawValue(HeightPadding padding)
{
    return padding == HeightPadding::single ? 6.0 : 1.0;
}

} // namespace quor::helper
