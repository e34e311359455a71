// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Drawing/Text/TextVerticalAlignment.h"

#include <QColor>
#include <QFont>
#include <QSizeF>
#include <QString>

#include <limits>
#include <optional>

class QPainter;

namespace quor::platform {
class AttributedString;
}

/// Measuring and placing of text, plain and attributed.
///
/// Text that wraps breaks at words and, where a word alone is too long, within it. Text that does
/// not wrap keeps its own lines; one that is wider than `maxWidth` loses its middle to an ellipsis.
/// Sizes and places are device-independent pixels, y points down. A `maxWidth` that is not a number
/// or negative counts as 0, one too large for a layout as no limit. Main thread only.
namespace quor::toolkit {

constexpr double unlimitedWidth = std::numeric_limits<double>::max();

/// A measured length as all text sizes are given: up to the next half or whole, and always more than
/// what was measured, so that nothing is cut (3.0 and 3.2 give 3.5, 3.6 gives 4.0). What is not
/// finite gives 0.
[[nodiscard]] double roundedTextLength(double length);

/// What `text` takes when drawn with the same arguments.
[[nodiscard]] QSizeF textSize(
    const QString& text, const QFont& font, bool wraps, double maxWidth = unlimitedWidth);

/// The same for attributed text; `font` counts where the text bears none.
[[nodiscard]] QSizeF textSize(
    const platform::AttributedString& text, const QFont& font, bool wraps, double maxWidth = unlimitedWidth);

/// Draws `text` at (x, y): `alignment` tells whether its left edge, its middle (Qt::AlignHCenter) or
/// its right edge stands at x, and its lines are aligned alike among each other. With a shadow
/// colour the text gets a soft shadow right below it, two pixels wide.
void drawText(QPainter& painter, const QString& text, const QColor& color, const QFont& font,
    Qt::AlignmentFlag alignment, TextVerticalAlignment verticalAlignment, bool wraps,
    std::optional<QColor> shadowColor, double x, double y, double maxWidth = unlimitedWidth);

/// The same for attributed text. Where it bears no font or colour, those of the painter count.
void drawAttributedText(QPainter& painter, const platform::AttributedString& text,
    Qt::AlignmentFlag alignment, TextVerticalAlignment verticalAlignment, bool wraps,
    std::optional<QColor> shadowColor, double x, double y, double maxWidth = unlimitedWidth);

} // namespace quor::toolkit
