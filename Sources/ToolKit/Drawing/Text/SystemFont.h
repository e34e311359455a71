// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// The user's general font in a given size and weight, as it is and with digits of equal width.
///
/// Sizes are device-independent pixels, rounded to whole ones, at least 1. Main thread only.
namespace quor::toolkit {

[[nodiscard]] QFont systemFont(double size, QFont::Weight weight);

/// The same where every digit takes equal room, so that a running time keeps its width. A general
/// font whose digits differ gives way to the nearest family at hand whose digits don't. The choice
/// is kept, so asking again is cheap.
[[nodiscard]] QFont monospacedDigitFont(double size, QFont::Weight weight);

} // namespace quor::toolkit
