// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Raw/RawMarkupData.h"

#include <QByteArrayView>
#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

namespace quor::markdown {

/// One node of a tree in memory. A tree stores its nodes in one array, in walking order: a first child is
/// next to its parent, and the next sibling is `subtreeCount` nodes further.
struct RawMarkupNode {
    quint32 textAt = 0; ///< offset of its texts: `first` bytes of the text, then `second` bytes of the detail
    quint32 first = 0; ///< for kinds without texts `RawMarkupData::number`; for a table its columns
    quint32 second = 0; ///< for kinds without texts `RawMarkupData::rowspan`
    MarkupKind kind = MarkupKind::document;
    bool hasText = false;
    bool hasDetail = false;
    char checkbox = 0; ///< packed, see `RawMarkup::checkbox`
    quint32 childCount = 0;
    quint32 subtreeCount = 1;
    quint32 toParent = 0; ///< nodes back to the parent
    quint32 toSibling = 0; ///< nodes back to the previous sibling; in a first child, nodes on to the last one
    quint32 indexInParent = 0;
    SourceRange range; ///< unknown if its first line is 0
};

/// A whole tree in two allocations. `RawMarkupBuilder` makes it; it is immutable afterwards, so any thread
/// can read it.
struct RawMarkupTree {
    std::vector<RawMarkupNode> nodes;
    std::vector<char> texts; ///< UTF-8, not terminated
    std::optional<QUrl> source;
    quint64 rootId = 0;
};

/// A raw node as a plain value, without its children.
struct RawMarkupHeader {
    RawMarkupData data;
    quint32 childCount = 0;
    quint32 subtreeCount = 1; ///< including the node itself
    std::optional<SourceRange> parsedRange;
};

/// A handle to a node of an immutable tree. It is cheap to copy and keeps the tree alive. Any thread.
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

    /// `RawMarkupData::text` and `detail` in UTF-8, valid while the tree exists. Null views if there is none.
    [[nodiscard]] QByteArrayView utf8Text() const;
    [[nodiscard]] QByteArrayView utf8Detail() const;
    [[nodiscard]] std::optional<Checkbox> checkbox() const;
    [[nodiscard]] ColumnAlignments columnAlignments() const;
    /// `nullopt` also for a column that does not exist, and for nodes that are not tables.
    [[nodiscard]] std::optional<ColumnAlignment> columnAlignment(quint32 column) const;

    /// The position in walking order; 0 for the root.
    [[nodiscard]] quint32 index() const { return index_; }
    [[nodiscard]] const RawMarkupNode& node() const { return tree_->nodes[index_]; }
    [[nodiscard]] const RawMarkupTree& tree() const { return *tree_; }
    /// The node of this tree at the position `index`.
    [[nodiscard]] RawMarkup at(quint32 index) const { return {tree_, index}; }
    /// Makes this handle refer to another node of the tree.
    void moveTo(quint32 index) { index_ = index; }

private:
    std::shared_ptr<const RawMarkupTree> tree_;
    quint32 index_;
};

} // namespace quor::markdown
