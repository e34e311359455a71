// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Parsing/ParseOptions.h"
#include "Markdown/Raw/RawMarkupBuilder.h"

#include <cmark-gfm.h>

namespace quor::markdown {

/// The body of the table that is being converted: it ends where its last row does.
struct PendingTableBody {
    SourceRange range;
};

/// One walk over the parser's tree, which builds ours. The parser's own iterator keeps the way, so that depth
/// costs nothing. The stops in it guard what the parser never does.
class MarkupConverterState {
public:
    MarkupConverterState(cmark_node* root, ParseOptions options, RawMarkupBuilder& builder);

    void convert();

private:
    void enter();
    void enterBlock();
    void enterInline();
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
