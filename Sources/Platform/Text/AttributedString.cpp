// SPDX-License-Identifier: MIT
#include "Platform/Text/AttributedString.h"

#include <algorithm>
#include <utility>

namespace quor::platform {

namespace {

QTextCharFormat formatOf(const TextAttachment& attachment)
{
    QTextCharFormat format;
    format.setProperty(AttributedString::attachmentProperty, QVariant::fromValue(attachment));
    return format;
}

} // namespace

AttributedString::AttributedString(const QString& string, const QTextCharFormat& attributes)
    : string_(string)
{
    appendRun(string.size(), attributes);
}

AttributedString::AttributedString(const TextAttachment& attachment)
    : AttributedString(QString(QChar::ObjectReplacementCharacter), formatOf(attachment))
{
}

void AttributedString::append(const AttributedString& other)
{
    const auto added = other.runs_; // `other` may be this text
    string_ += other.string_;
    for (const auto& run : added)
        appendRun(run.length, run.format);
}

void AttributedString::append(QStringView string, const QTextCharFormat& attributes)
{
    string_ += string;
    appendRun(string.size(), attributes);
}

void AttributedString::appendRun(qsizetype length, const QTextCharFormat& attributes)
{
    if (length <= 0)
        return;
    // An attachment is the attribute of one character: two in a row stay two runs.
    if (!runs_.isEmpty() && runs_.last().format == attributes
        && !attributes.hasProperty(attachmentProperty)) {
        runs_.last().length += static_cast<int>(length);
        return;
    }
    const int start = runs_.isEmpty() ? 0 : runs_.last().start + runs_.last().length;
    runs_.append({start, static_cast<int>(length), attributes});
}

template <typename Change>
void AttributedString::changeAttributes(TextRange range, Change change)
{
    const auto changed = range.clipped(length());
    if (changed.length == 0)
        return;
    for (const auto& run : std::exchange(runs_, {})) {
        const qsizetype start = run.start;
        const qsizetype end = start + run.length;
        const auto from = std::clamp(changed.location, start, end);
        const auto to = std::clamp(changed.end(), start, end);
        QTextCharFormat format = run.format;
        change(format);
        appendRun(from - start, run.format);
        appendRun(to - from, format);
        appendRun(end - to, run.format);
    }
}

void AttributedString::addAttributes(const QTextCharFormat& attributes, TextRange range)
{
    changeAttributes(range, [&](QTextCharFormat& format) { format.merge(attributes); });
}

void AttributedString::addAttribute(int property, const QVariant& value, TextRange range)
{
    changeAttributes(range, [&](QTextCharFormat& format) { format.setProperty(property, value); });
}

QTextCharFormat AttributedString::attributes(qsizetype index) const
{
    if (index < 0 || index >= length())
        return {};
    const auto next = std::upper_bound(
        runs_.begin(), runs_.end(), index, [](qsizetype at, const Run& run) { return at < run.start; });
    return std::prev(next)->format;
}

std::optional<TextAttachment> AttributedString::attachment(qsizetype index) const
{
    const QVariant value = attributes(index).property(attachmentProperty);
    if (!value.canConvert<TextAttachment>())
        return std::nullopt;
    return value.value<TextAttachment>();
}

} // namespace quor::platform
