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

/// What is longer, in UTF-16 units, is too wide for the numbers of a layout.
constexpr qsizetype longestMeasurableLine = 200'000;

/// The text with the middle of each line that is wider than `maxWidth` replaced by an ellipsis, which
/// takes the attributes of what stands before it. Lines end at QChar::LineSeparator. What is seen as
/// one character is kept or dropped as one; a width too small even for the ellipsis leaves it alone.
/// A line that is too long to measure counts as too wide for any width.
[[nodiscard]] FormattedText truncatedInMiddle(const FormattedText& text, const QFont& font, double maxWidth);

} // namespace quor::toolkit
