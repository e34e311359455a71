// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Raw/RawMarkupData.h"

#include <QByteArrayView>
#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

namespace quor::markdown {

/// One node as it lies in memory. All nodes of a tree lie in a row, in walking order, so the first child
/// follows its parent, and the next sibling is a subtree further.
struct RawMarkupNode {
    quint32 textAt = 0; ///< where its texts are: `first` bytes of one, then `second` bytes of another
    quint32 first = 0; ///< a number in the kinds without texts
    quint32 second = 0;
    MarkupKind kind = MarkupKind::document;
    bool hasText = false;
    bool hasDetail = false;
    quint8 checkbox = 0; ///< 0 for none, else one more than the `Checkbox`
    quint32 childCount = 0;
    quint32 subtreeCount = 1;
    quint32 toParent = 0; ///< all three as a number of nodes
    quint32 toSibling = 0; ///< back to the one before; a first child knows the way on to the last
    quint32 indexInParent = 0;
    SourceRange range; ///< none if its first line is 0
};

/// A whole tree: two allocations, however many nodes. Immutable once built, so any thread may read it.
struct RawMarkupTree {
    std::vector<RawMarkupNode> nodes;
    std::vector<char> texts; ///< UTF-8, without end marks
    std::optional<QUrl> source;
    quint64 rootId = 0;
};

/// What stands at the head of a raw node.
struct RawMarkupHeader {
    RawMarkupData data;
    quint32 childCount = 0;
    quint32 subtreeCount = 1; ///< with the node itself
    std::optional<SourceRange> parsedRange;
};

/// A node of an immutable tree, with its share in the tree: cheap to copy, and the tree lives as long as any
/// handle on any of its nodes. Any thread.
class RawMarkup {
public:
    RawMarkup(std::shared_ptr<const RawMarkupTree> tree, quint32 index)
        : tree_(std::move(tree))
        , index_(index)
    {
    }

    [[nodiscard]] MarkupKind kind() const { return node().kind; }
    [[nodiscard]] RawMarkupData data() const;
    [[nodiscard]] RawMarkupHeader header() const;
    [[nodiscard]] std::optional<SourceRange> parsedRange() const;

    /// As `RawMarkupData::text` and `detail`, in UTF-8, while the tree lives. Null views where there is none.
    [[nodiscard]] QByteArrayView utf8Text() const;
    [[nodiscard]] QByteArrayView utf8Detail() const;
    [[nodiscard]] ColumnAlignments columnAlignments() const;
    /// None as well for a column that the table does not have.
    [[nodiscard]] std::optional<ColumnAlignment> columnAlignment(quint32 column) const;

    /// Its place in walking order, from 0 at the root.
    [[nodiscard]] quint32 index() const { return index_; }
    [[nodiscard]] const RawMarkupNode& node() const { return tree_->nodes[index_]; }
    [[nodiscard]] const RawMarkupTree& tree() const { return *tree_; }
    /// Another node of this tree.
    [[nodiscard]] RawMarkup at(quint32 index) const { return {tree_, index}; }
    void moveTo(quint32 index) { index_ = index; }

private:
    std::shared_ptr<const RawMarkupTree> tree_;
    quint32 index_;
};

} // namespace quor::markdown
