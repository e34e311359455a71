// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// The user's general font in a given size and weight. Sizes are in device-independent pixels, rounded to
/// whole ones, at least 1. Main thread only.
namespace quor::toolkit {

/// Returns the user's general font.
[[nodiscard]] QFont systemFont(double size, QFont::Weight weight);

/// Returns the user's general font if its digits are all equally wide, so that a running time keeps its
/// width; otherwise an installed font with such digits. The choice is remembered, so that a second call is
/// cheap.
[[nodiscard]] QFont monospacedDigitFont(double size, QFont::Weight weight);

} // namespace quor::toolkit
