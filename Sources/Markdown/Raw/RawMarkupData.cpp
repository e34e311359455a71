// SPDX-License-Identifier: MIT
#include "Markdown/Raw/RawMarkupData.h"

namespace quor::markdown {

RawMarkupData RawMarkupData::plain(MarkupKind kind)
{
    RawMarkupData data;
    data.kind = kind;
    return data;
}

RawMarkupData RawMarkupData::literal(MarkupKind kind, const QString& text)
{
    RawMarkupData data = plain(kind);
    data.text = text;
    return data;
}

RawMarkupData RawMarkupData::codeBlock(const QString& code, const std::optional<QString>& language)
{
    RawMarkupData data = literal(MarkupKind::codeBlock, code);
    data.detail = language;
    return data;
}

RawMarkupData RawMarkupData::heading(quint32 level)
{
    RawMarkupData data = plain(MarkupKind::heading);
    data.number = level;
    return data;
}

RawMarkupData RawMarkupData::listItem(std::optional<Checkbox> checkbox)
{
    RawMarkupData data = plain(MarkupKind::listItem);
    data.checkbox = checkbox;
    return data;
}

RawMarkupData RawMarkupData::orderedList(quint32 startIndex)
{
    RawMarkupData data = plain(MarkupKind::orderedList);
    data.number = startIndex;
    return data;
}

RawMarkupData RawMarkupData::blockDirective(
    const QString& name, SourceLocation nameLocation, const QString& arguments)
{
    RawMarkupData data = literal(MarkupKind::blockDirective, name);
    data.detail = arguments;
    data.nameLocation = nameLocation;
    return data;
}

RawMarkupData RawMarkupData::image(const std::optional<QString>& source, const std::optional<QString>& title)
{
    RawMarkupData data = plain(MarkupKind::image);
    data.text = source;
    data.detail = title;
    return data;
}

RawMarkupData RawMarkupData::link(
    const std::optional<QString>& destination, const std::optional<QString>& title)
{
    RawMarkupData data = image(destination, title);
    data.kind = MarkupKind::link;
    return data;
}

RawMarkupData RawMarkupData::table(const ColumnAlignments& columnAlignments)
{
    RawMarkupData data = plain(MarkupKind::table);
    data.columnAlignments = columnAlignments;
    return data;
}

RawMarkupData RawMarkupData::tableCell(quint32 colspan, quint32 rowspan)
{
    RawMarkupData data = plain(MarkupKind::tableCell);
    data.number = colspan;
    data.rowspan = rowspan;
    return data;
}

} // namespace quor::markdown
