// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/TextLayout.h"

#include "ToolKit/Drawing/Text/TextTruncation.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <limits>
#include <optional>

using quor::platform::AttributedString;
using quor::platform::TextAttachment;

namespace quor::toolkit {

namespace {

// The widest line that a layout can hold: it measures in 1/64 pixels and multiplies by 4.
constexpr double widestLine = std::numeric_limits<int>::max() / 256.0;

// A layout without a document reserves no room for inline objects. So this letter stands for an attachment:
// it is drawn clear, and letter spacing makes it as wide as the attachment.
constexpr QChar placeholder(u'x');

std::optional<TextAttachment> attachmentOf(const QTextFormat& format)
{
    const QVariant value = format.property(AttributedString::attachmentProperty);
    if (!value.isValid())
        return std::nullopt;
    return value.value<TextAttachment>();
}

void makeRoom(QTextCharFormat& format, const TextAttachment& attachment, const QFont& font)
{
    const double own = QFontMetricsF(format.font().resolve(font)).horizontalAdvance(placeholder);
    format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    format.setFontLetterSpacing(attachment.bounds.width() - own);
    format.setForeground(Qt::transparent);
}

FormattedText prepared(const AttributedString& text, const QFont& font)
{
    FormattedText result{text.string(), text.runs()};
    result.formats.removeIf([](const AttributedString::Run& run) { return run.format.isEmpty(); });
    // A layout breaks lines only at its own separator. Positions must not change, so a carriage return
    // before a line feed becomes a character without width.
    result.text.replace(QStringLiteral("\r\n"), QStringLiteral("\u200B\u2028"));
    for (const QChar mark : {QChar(u'\n'), QChar(u'\r'), QChar(QChar::ParagraphSeparator)})
        result.text.replace(mark, QChar(QChar::LineSeparator));
    for (auto& run : result.formats) {
        if (const auto attachment = attachmentOf(run.format)) {
            makeRoom(run.format, *attachment, font);
            std::fill_n(result.text.begin() + run.start, run.length, placeholder);
        }
    }
    return result;
}

double alignedOffset(double room, Qt::AlignmentFlag alignment)
{
    switch (alignment) {
    case Qt::AlignRight:
        return room;
    case Qt::AlignHCenter:
    case Qt::AlignCenter:
        return room / 2;
    default:
        return 0;
    }
}

} // namespace

TextLayout::TextLayout(const AttributedString& text, const QFont& font, bool wraps, double maxWidth)
{
    const double width = maxWidth > 0 ? std::min(maxWidth, widestLine) : 0.0;
    auto content = prepared(text, font);
    if (!wraps && (width < widestLine || content.text.size() > longestMeasurableLine))
        content = truncatedInMiddle(content, font, width);
    layout_.setFont(font);
    layout_.setText(content.text);
    layout_.setFormats(content.formats);
    layout_.setCacheEnabled(true);
    // `draw` aligns the lines, since their common width is known only after the layout.
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    // The direction follows from the text, not from the application's language.
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout_.setTextOption(option);
    placeLines(wraps ? width : widestLine);
}

void TextLayout::placeLines(double width)
{
    // `formats` returns a copy, so it is called once. Lines need only the few runs with an image.
    auto images = layout_.formats();
    images.removeIf([](const QTextLayout::FormatRange& run) { return !attachmentOf(run.format); });
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(width);
        placeLine(line, images);
    }
    layout_.endLayout();
}

void TextLayout::placeLine(QTextLine& line, const QList<QTextLayout::FormatRange>& images)
{
    double ascent = line.ascent();
    double descent = line.descent();
    const int start = line.textStart();
    const int end = start + line.textLength();
    const std::size_t first = attachments_.size();
    const auto isBefore
        = [](const QTextLayout::FormatRange& run, int at) { return run.start + run.length <= at; };
    auto run = std::lower_bound(images.begin(), images.end(), start, isBefore);
    for (; run != images.end() && run->start < end; ++run) {
        const auto attachment = attachmentOf(run->format);
        for (int at = std::max(run->start, start); at < std::min(run->start + run->length, end); ++at) {
            const QRectF& bounds = attachment->bounds;
            const double left = std::min(line.cursorToX(at), line.cursorToX(at + 1));
            attachments_.push_back({line.lineNumber(),
                QRectF(left + bounds.x(), -bounds.y() - bounds.height(), bounds.width(), bounds.height()),
                attachment->image});
            ascent = std::max(ascent, bounds.y() + bounds.height());
            descent = std::max(descent, -bounds.y());
        }
    }
    line.setPosition({0, size_.height() + ascent - line.ascent()});
    for (std::size_t i = first; i < attachments_.size(); ++i)
        attachments_[i].rect.translate(0, size_.height() + ascent);
    size_ = {std::max(size_.width(), line.naturalTextWidth()), size_.height() + ascent + descent};
}

void TextLayout::draw(QPainter& painter, QPointF origin, double width, Qt::AlignmentFlag alignment) const
{
    const auto offset = [&](const QTextLine& line) {
        return QPointF(alignedOffset(width - line.naturalTextWidth(), alignment), 0);
    };
    for (int i = 0; i < layout_.lineCount(); ++i) {
        const QTextLine line = layout_.lineAt(i);
        line.draw(&painter, origin + offset(line));
    }
    const bool smooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const auto& attachment : attachments_)
        painter.drawImage(
            attachment.rect.translated(origin + offset(layout_.lineAt(attachment.line))), attachment.image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
}

} // namespace quor::toolkit
