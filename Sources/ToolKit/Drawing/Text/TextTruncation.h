// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QList>
#include <QString>
#include <QTextLayout>

namespace quor::toolkit {

/// A text and its runs of attributes, in the form that `QTextLayout` takes.
struct FormattedText {
    QString text;
    QList<QTextLayout::FormatRange> formats;
};

/// A longer line, in UTF-16 units, can be too wide for the numbers of a layout.
constexpr qsizetype longestMeasurableLine = 200'000;

/// Returns the text with an ellipsis in place of the middle of each line that is wider than `maxWidth`. The
/// ellipsis has the attributes of the character before it. Lines end at QChar::LineSeparator. Characters
/// are grapheme clusters and are never cut. If not even the ellipsis fits, it is all that remains of the
/// line. A line above `longestMeasurableLine` is always shortened.
[[nodiscard]] FormattedText truncatedInMiddle(const FormattedText& text, const QFont& font, double maxWidth);

} // namespace quor::toolkit
