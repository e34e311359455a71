// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Parsing/ParseOptions.h"
#include "Markdown/Raw/RawMarkupBuilder.h"

#include <cmark-gfm.h>

namespace quor::markdown {

/// The body of the table that is being converted. Its range ends with its last row.
struct PendingTableBody {
    SourceRange range;
};

/// A walk over a tree of cmark-gfm that builds our tree. It uses the iterator of cmark-gfm instead of
/// recursion, so that it needs no stack for the depth of the tree. Its assertions and fatal errors check what
/// cmark-gfm guarantees.
class MarkupConverterState {
public:
    MarkupConverterState(cmark_node* root, ParseOptions options, RawMarkupBuilder& builder);

    /// Adds all of the tree to the builder. Call it once.
    void convert();

private:
    void enter();
    void enterList();
    void enterListItem();
    void enterOfExtension(QByteArrayView type);
    void enterTable();
    void enterTableRow();
    void leave();
    void leaveTable();
    void begin(MarkupKind kind);
    void leaf(MarkupKind kind);
    void literal(MarkupKind kind, const char* detail = nullptr);
    void target(MarkupKind kind);
    [[nodiscard]] SourceRange range() const;
    [[nodiscard]] QByteArrayView typeName() const { return cmark_node_get_type_string(node_); }

    cmark_iter* iterator_;
    cmark_event_type event_ = CMARK_EVENT_NONE;
    cmark_node* node_ = nullptr;
    ParseOptions options_;
    RawMarkupBuilder& builder_;
    bool headerSeen_ = false;
    std::optional<PendingTableBody> pendingTableBody_;
};

} // namespace quor::markdown
