// SPDX-License-Identifier: MIT
#include "Markdown/Raw/RawMarkupBuilder.h"

#include "Markdown/Raw/PackedOptional.h"

#include <atomic>
#include <utility>

namespace quor::markdown {

namespace {

quint64 freshRootId()
{
    static std::atomic<quint64> last = 0;
    return ++last;
}

QByteArrayView view(const QByteArray& bytes, bool isPresent)
{
    // An empty text must not become a null view, which means that there is no text.
    return isPresent ? QByteArrayView(bytes.constData(), bytes.size()) : QByteArrayView();
}

} // namespace

void RawMarkupBuilder::reserve(qsizetype nodes, qsizetype textBytes)
{
    tree_->nodes.reserve(static_cast<std::size_t>(nodes));
    tree_->texts.reserve(static_cast<std::size_t>(textBytes));
}

quint32 RawMarkupBuilder::addText(QByteArrayView text)
{
    const auto at = static_cast<quint32>(tree_->texts.size());
    tree_->texts.insert(tree_->texts.end(), text.begin(), text.end());
    return at;
}

void RawMarkupBuilder::begin(const Content& content, const SourceRange& range)
{
    std::vector<RawMarkupNode>& nodes = tree_->nodes;
    const auto index = static_cast<quint32>(nodes.size());
    Q_ASSERT(depth_ > 0 || index == 0);
    RawMarkupNode node;
    node.kind = content.kind;
    node.hasText = !content.text.isNull();
    node.hasDetail = !content.detail.isNull();
    if (node.hasText || node.hasDetail) {
        node.textAt = addText(content.text);
        (void)addText(content.detail);
        node.first = static_cast<quint32>(content.text.size());
        node.second = static_cast<quint32>(content.detail.size());
    } else {
        node.first = content.number;
        node.second = content.rowspan;
    }
    node.checkbox = packed(content.checkbox);
    node.range = range;
    if (depth_ > 0) {
        RawMarkupNode& parent = nodes[open_];
        node.toParent = index - open_;
        node.indexInParent = parent.childCount;
        if (parent.childCount > 0) {
            RawMarkupNode& eldest = nodes[open_ + 1];
            const quint32 toEldest = index - (open_ + 1);
            node.toSibling = toEldest - eldest.toSibling;
            eldest.toSibling = toEldest;
        }
        ++parent.childCount;
    }
    nodes.push_back(node);
    open_ = index;
    ++depth_;
}

void RawMarkupBuilder::begin(const RawMarkupData& data, const std::optional<SourceRange>& range)
{
    const SourceRange place = range.value_or(SourceRange{});
    if (data.kind == MarkupKind::table) {
        beginTable(data.columnAlignments, place);
        return;
    }
    const QByteArray text = data.text.value_or(QString()).toUtf8();
    const QByteArray detail = data.detail.value_or(QString()).toUtf8();
    begin(Content{data.kind, view(text, data.text.has_value()), view(detail, data.detail.has_value()),
              data.number, data.rowspan, data.checkbox},
        place);
    if (data.kind == MarkupKind::blockDirective)
        (void)addText({reinterpret_cast<const char*>(&data.nameLocation), sizeof data.nameLocation});
}

void RawMarkupBuilder::beginTable(const ColumnAlignments& alignments, const SourceRange& range)
{
    QByteArray bytes;
    for (const auto& alignment : alignments)
        bytes += packed(alignment);
    begin(Content{MarkupKind::table, {}, {}, static_cast<quint32>(alignments.size())}, range);
    tree_->nodes.back().textAt = addText(bytes);
}

void RawMarkupBuilder::end()
{
    Q_ASSERT(depth_ > 0);
    RawMarkupNode& node = tree_->nodes[open_];
    node.subtreeCount = static_cast<quint32>(tree_->nodes.size()) - open_;
    open_ -= node.toParent;
    --depth_;
}

void RawMarkupBuilder::extendRange(const SourceLocation& end)
{
    tree_->nodes[open_].range.end = end;
}

RawMarkup RawMarkupBuilder::finish(const std::optional<QUrl>& source)
{
    Q_ASSERT(depth_ == 0 && !tree_->nodes.empty());
    tree_->source = source;
    tree_->rootId = freshRootId();
    return {std::exchange(tree_, nullptr), 0};
}

} // namespace quor::markdown
