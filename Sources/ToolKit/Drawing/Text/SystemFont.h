// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// The user's general font in a given size and weight. Sizes are in device-independent pixels, which need not
/// be whole, clamped to 1 to 1000. Main thread only.
namespace quor::toolkit {

/// Returns the size of a font, also if it is set in points: 10 points are 13.33 pixels at 96 dots per inch.
/// It is not rounded, unlike the size in `QFontInfo`.
[[nodiscard]] double pixelSize(const QFont& font);

/// Returns the user's general font.
[[nodiscard]] QFont systemFont(double size, QFont::Weight weight);

/// Returns the user's general font if its digits are all equally wide, so that a running time keeps its
/// width; otherwise an installed font with such digits. The choice is remembered, so that a second call is
/// cheap.
[[nodiscard]] QFont monospacedDigitFont(double size, QFont::Weight weight);

} // namespace quor::toolkit
