// SPDX-License-Identifier: MIT
#include "Markdown/Raw/RawMarkup.h"

#include "Markdown/Raw/PackedOptional.h"

#include <cstring>

namespace quor::markdown {

namespace {

std::optional<QString> string(QByteArrayView utf8)
{
    return utf8.isNull() ? std::nullopt : std::optional(QString::fromUtf8(utf8));
}

} // namespace

QByteArrayView RawMarkup::utf8Text() const
{
    const RawMarkupNode& it = node();
    return it.hasText ? QByteArrayView(tree_->texts.data() + it.textAt, it.first) : QByteArrayView();
}

QByteArrayView RawMarkup::utf8Detail() const
{
    const RawMarkupNode& it = node();
    const quint32 before = it.hasText ? it.first : 0;
    return it.hasDetail ? QByteArrayView(tree_->texts.data() + it.textAt + before, it.second)
                        : QByteArrayView();
}

std::optional<ColumnAlignment> RawMarkup::columnAlignment(quint32 column) const
{
    const RawMarkupNode& it = node();
    if (it.kind != MarkupKind::table || column >= it.first)
        return std::nullopt;
    return unpacked<ColumnAlignment>(tree_->texts[it.textAt + column]);
}

std::optional<Checkbox> RawMarkup::checkbox() const
{
    return unpacked<Checkbox>(node().checkbox);
}

ColumnAlignments RawMarkup::columnAlignments() const
{
    ColumnAlignments alignments(kind() == MarkupKind::table ? node().first : 0);
    for (std::size_t i = 0; i < alignments.size(); ++i)
        alignments[i] = columnAlignment(static_cast<quint32>(i));
    return alignments;
}

std::optional<SourceRange> RawMarkup::parsedRange() const
{
    return node().range.start.line == 0 ? std::nullopt : std::optional(node().range);
}

RawMarkupData RawMarkup::data() const
{
    const RawMarkupNode& it = node();
    RawMarkupData data = RawMarkupData::plain(it.kind);
    data.text = string(utf8Text());
    data.detail = string(utf8Detail());
    if (it.kind == MarkupKind::heading || it.kind == MarkupKind::orderedList
        || it.kind == MarkupKind::tableCell) {
        data.number = it.first;
        data.rowspan = it.second;
    }
    data.checkbox = checkbox();
    data.columnAlignments = columnAlignments();
    if (it.kind == MarkupKind::blockDirective)
        std::memcpy(&data.nameLocation, tree_->texts.data() + it.textAt + it.first + it.second,
            sizeof data.nameLocation);
    return data;
}

RawMarkupHeader RawMarkup::header() const
{
    return {data(), node().childCount, node().subtreeCount, parsedRange()};
}

} // namespace quor::markdown
