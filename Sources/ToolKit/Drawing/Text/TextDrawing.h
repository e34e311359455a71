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
/// Text that wraps breaks between words; a word that is too long breaks within. Text that does not wrap
/// keeps its own lines; in a line that is wider than `maxWidth` an ellipsis replaces the middle. Sizes and
/// positions are in device-independent pixels, y points down. A `maxWidth` that is negative or not a number
/// is taken as 0, one that is too large for a layout as no limit. Main thread only.
namespace quor::toolkit {

constexpr double unlimitedWidth = std::numeric_limits<double>::max();

/// Returns `length` rounded as all text sizes are: up to the next half or whole number, and always above
/// `length`, so that nothing is cut off (3.5 for 3.0 and 3.2, 4.0 for 3.6). Returns 0 if `length` is not
/// finite.
[[nodiscard]] double roundedTextLength(double length);

/// Returns the size that `text` takes when it is drawn with the same arguments.
[[nodiscard]] QSizeF textSize(
    const QString& text, const QFont& font, bool wraps, double maxWidth = unlimitedWidth);

/// The same for attributed text. `font` applies to runs without a font.
[[nodiscard]] QSizeF textSize(
    const platform::AttributedString& text, const QFont& font, bool wraps, double maxWidth = unlimitedWidth);

/// Draws `text` at (x, y). `alignment` says which point of the text stands at x: its left edge
/// (Qt::AlignLeft), its middle (Qt::AlignHCenter) or its right edge (Qt::AlignRight); the lines are aligned
/// with each other in the same way. `verticalAlignment` says the same of y. With a shadow colour the text
/// gets a soft shadow without an offset, two pixels wide.
void drawText(QPainter& painter, const QString& text, const QColor& color, const QFont& font,
    Qt::AlignmentFlag alignment, TextVerticalAlignment verticalAlignment, bool wraps,
    std::optional<QColor> shadowColor, double x, double y, double maxWidth = unlimitedWidth);

/// The same for attributed text. The painter's font and pen colour apply to runs without a font or colour.
void drawAttributedText(QPainter& painter, const platform::AttributedString& text,
    Qt::AlignmentFlag alignment, TextVerticalAlignment verticalAlignment, bool wraps,
    std::optional<QColor> shadowColor, double x, double y, double maxWidth = unlimitedWidth);

} // namespace quor::toolkit
