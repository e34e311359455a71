// SPDX-License-Identifier: MIT
#pragma once

/// Lengths that all layouts of forms share, in device-independent pixels.
namespace quor::formkit {

constexpr int edgePadding = 20; ///< left and right of a row
constexpr int separatorPadding = 10; ///< left and right of a separator

} // namespace quor::formkit
