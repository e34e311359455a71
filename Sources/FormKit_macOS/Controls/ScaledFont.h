// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

class QWidget;

/// Fonts in sizes that follow the user's general font. Main thread only.
namespace quor::formkit {

/// The size of secondary texts and of small controls, in proportion to the general size: 11 to 13.
constexpr double smallFontFactor = 11.0 / 13;
/// The size of headings, in proportion to the general size.
constexpr double titleFontFactor = 1.2;
/// The size of second heading lines, in proportion to the general size.
constexpr double subtitleFontFactor = 0.9;

/// Returns `font` in `factor` times its size.
[[nodiscard]] QFont scaledFont(QFont font, double factor);

/// Gives `widget` the font of `container`, in which it stands, in `factor` times its size, now and after
/// each change of that font. Call it once for a widget. Both widgets must end together.
void keepFontScaled(QWidget& widget, QWidget& container, double factor, QFont::Weight weight = QFont::Normal);

} // namespace quor::formkit
