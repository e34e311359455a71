// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/TextTruncation.h"

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/GraphemeClusters.h"

#include <algorithm>
#include <vector>

namespace quor::toolkit {

namespace {

constexpr QChar ellipsis(0x2026);

FormattedText slice(const FormattedText& whole, qsizetype from, qsizetype length)
{
    FormattedText part{whole.text.sliced(from, length), {}};
    // Formats are in order. A text of many lines has many, so they are not all looked at for each line.
    const auto isBefore
        = [](const auto& format, qsizetype at) { return qsizetype(format.start) + format.length <= at; };
    auto format = std::lower_bound(whole.formats.begin(), whole.formats.end(), from, isBefore);
    for (; format != whole.formats.end() && format->start < from + length; ++format) {
        const qsizetype start = std::max<qsizetype>(format->start, from);
        const qsizetype end = std::min<qsizetype>(qsizetype(format->start) + format->length, from + length);
        if (start < end)
            part.formats.append({int(start - from), int(end - start), format->format});
    }
    return part;
}

void append(FormattedText& text, const FormattedText& other)
{
    for (auto format : other.formats) {
        format.start += int(text.text.size());
        text.formats.append(format);
    }
    text.text += other.text;
}

double naturalWidth(const FormattedText& line, const QFont& font)
{
    QTextLayout layout(line.text, font);
    layout.setFormats(line.formats);
    layout.beginLayout();
    const QTextLine only = layout.createLine();
    layout.endLayout();
    return only.isValid() ? only.naturalTextWidth() : 0;
}

// Returns the line with `kept` of its characters; of an odd number, the larger half is before the ellipsis.
FormattedText shortened(const FormattedText& line, const std::vector<qsizetype>& ends, std::size_t kept)
{
    const std::size_t head = (kept + 1) / 2;
    const std::size_t tail = kept / 2;
    const qsizetype headEnd = head == 0 ? 0 : ends[head - 1];
    const qsizetype tailStart = tail == 0 ? line.text.size() : ends[ends.size() - tail - 1];

    FormattedText mark = slice(line, headEnd == 0 ? 0 : headEnd - 1, 1);
    mark.text = ellipsis;
    if (!mark.formats.isEmpty()
        && mark.formats.first().format.hasProperty(platform::AttributedString::attachmentProperty))
        mark.formats.clear();
    FormattedText result = slice(line, 0, headEnd);
    append(result, mark);
    append(result, slice(line, tailStart, line.text.size() - tailStart));
    return result;
}

FormattedText fittedLine(const FormattedText& line, const QFont& font, double maxWidth)
{
    const bool isMeasurable = line.text.size() <= longestMeasurableLine;
    if (line.text.isEmpty() || (isMeasurable && naturalWidth(line, font) <= maxWidth))
        return line;
    std::vector<qsizetype> ends;
    qsizetype end = 0;
    for (const auto character : platform::GraphemeClusters::characters(line.text))
        ends.push_back(end += character.size());

    const auto fits
        = [&](std::size_t kept) { return naturalWidth(shortened(line, ends, kept), font) <= maxWidth; };
    const std::size_t most = std::min(ends.size() - 1, static_cast<std::size_t>(longestMeasurableLine));
    // Doubling first makes the cost depend on the length of the result, not of the line.
    std::size_t kept = 0;
    std::size_t tooMany = 1;
    while (tooMany <= most && fits(tooMany)) {
        kept = tooMany;
        tooMany *= 2;
    }
    tooMany = std::min(tooMany, most + 1);
    while (tooMany - kept > 1) {
        const std::size_t middle = (kept + tooMany) / 2;
        (fits(middle) ? kept : tooMany) = middle;
    }
    return shortened(line, ends, kept);
}

} // namespace

FormattedText truncatedInMiddle(const FormattedText& text, const QFont& font, double maxWidth)
{
    FormattedText result;
    qsizetype from = 0;
    while (true) {
        const qsizetype separator = text.text.indexOf(QChar::LineSeparator, from);
        const qsizetype end = separator < 0 ? text.text.size() : separator;
        append(result, fittedLine(slice(text, from, end - from), font, maxWidth));
        if (separator < 0)
            return result;
        append(result, slice(text, separator, 1));
        from = separator + 1;
    }
}

} // namespace quor::toolkit
