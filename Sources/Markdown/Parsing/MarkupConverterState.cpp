// SPDX-License-Identifier: MIT
#include "Markdown/Parsing/MarkupConverterState.h"

#include <cmark-gfm-core-extensions.h>

namespace quor::markdown {

namespace {

using Content = RawMarkupBuilder::Content;

// The types of extensions are numbered behind the parser's own, as they are registered.
constexpr unsigned lastTypeOfItsOwn = CMARK_NODE_FOOTNOTE_DEFINITION & CMARK_NODE_VALUE_MASK;

// The parser writes nothing for none.
QByteArrayView presentText(const char* text)
{
    return text && *text ? QByteArrayView(text) : QByteArrayView();
}

bool isOfExtension(cmark_node* node)
{
    return (cmark_node_get_type(node) & CMARK_NODE_VALUE_MASK) > lastTypeOfItsOwn;
}

char storedAlignment(quint8 column)
{
    const auto stored
        = [](ColumnAlignment alignment) { return static_cast<char>(static_cast<int>(alignment) + 1); };
    switch (column) {
    case 0:
        return 0;
    case 'l':
        return stored(ColumnAlignment::left);
    case 'c':
        return stored(ColumnAlignment::center);
    case 'r':
        return stored(ColumnAlignment::right);
    default:
        qFatal("Unexpected table column character for cmark table: %c", column);
    }
}

} // namespace

MarkupConverterState::MarkupConverterState(cmark_node* root, ParseOptions options, RawMarkupBuilder& builder)
    : iterator_(cmark_iter_new(root)) // in the arena, with everything else of the parser
    , options_(options)
    , builder_(builder)
{
}

void MarkupConverterState::convert()
{
    while ((event_ = cmark_iter_next(iterator_)) != CMARK_EVENT_DONE) {
        node_ = cmark_iter_get_node(iterator_);
        if (event_ == CMARK_EVENT_ENTER)
            enter();
        else
            leave();
    }
}

SourceRange MarkupConverterState::range() const
{
    if (options_.testFlag(ParseOption::disableSourcePosOptions))
        return {};
    return {{cmark_node_get_start_line(node_), cmark_node_get_start_column(node_)},
        {cmark_node_get_end_line(node_), cmark_node_get_end_column(node_)}};
}

void MarkupConverterState::begin(MarkupKind kind)
{
    builder_.begin(Content{kind}, range());
}

void MarkupConverterState::leaf(MarkupKind kind)
{
    builder_.leaf(Content{kind}, range());
}

void MarkupConverterState::literal(MarkupKind kind, const char* detail)
{
    const char* text = cmark_node_get_literal(node_);
    Q_ASSERT_X(text, "literal", "Expected literal content for cmark node but got null pointer");
    builder_.leaf(Content{kind, QByteArrayView(text), presentText(detail)}, range());
}

void MarkupConverterState::target(MarkupKind kind)
{
    builder_.begin(
        Content{kind, presentText(cmark_node_get_url(node_)), presentText(cmark_node_get_title(node_))},
        range());
}

void MarkupConverterState::enter()
{
    if ((cmark_node_get_type(node_) & CMARK_NODE_TYPE_MASK) == CMARK_NODE_TYPE_INLINE)
        enterInline();
    else
        enterBlock();
}

void MarkupConverterState::enterBlock()
{
    switch (cmark_node_get_type(node_)) {
    case CMARK_NODE_DOCUMENT:
        return begin(MarkupKind::document);
    case CMARK_NODE_BLOCK_QUOTE:
        return begin(MarkupKind::blockQuote);
    case CMARK_NODE_LIST:
        return enterList();
    case CMARK_NODE_ITEM:
        return enterListItem();
    case CMARK_NODE_CODE_BLOCK:
        return literal(MarkupKind::codeBlock, cmark_node_get_fence_info(node_));
    case CMARK_NODE_HTML_BLOCK:
        return literal(MarkupKind::htmlBlock);
    case CMARK_NODE_CUSTOM_BLOCK:
        return begin(MarkupKind::customBlock);
    case CMARK_NODE_PARAGRAPH:
        return begin(MarkupKind::paragraph);
    case CMARK_NODE_HEADING:
        return builder_.begin(
            Content{MarkupKind::heading, {}, {}, static_cast<quint32>(cmark_node_get_heading_level(node_))},
            range());
    case CMARK_NODE_THEMATIC_BREAK:
        return leaf(MarkupKind::thematicBreak);
    default:
        return enterOfExtension(typeName());
    }
}

void MarkupConverterState::enterInline()
{
    switch (cmark_node_get_type(node_)) {
    case CMARK_NODE_TEXT:
        return literal(MarkupKind::text);
    case CMARK_NODE_SOFTBREAK:
        return leaf(MarkupKind::softBreak);
    case CMARK_NODE_LINEBREAK:
        return leaf(MarkupKind::lineBreak);
    case CMARK_NODE_CODE:
        return literal(MarkupKind::inlineCode);
    case CMARK_NODE_HTML_INLINE:
        return literal(MarkupKind::inlineHTML);
    case CMARK_NODE_CUSTOM_INLINE:
        return builder_.begin(
            Content{MarkupKind::customInline, QByteArrayView(cmark_node_get_on_enter(node_))}, range());
    case CMARK_NODE_EMPH:
        return begin(MarkupKind::emphasis);
    case CMARK_NODE_STRONG:
        return begin(MarkupKind::strong);
    case CMARK_NODE_LINK:
        return target(MarkupKind::link);
    case CMARK_NODE_IMAGE:
        return target(MarkupKind::image);
    default:
        return enterOfExtension(typeName());
    }
}

void MarkupConverterState::enterList()
{
    const cmark_list_type type = cmark_node_get_list_type(node_);
    Q_ASSERT_X(type != CMARK_NO_LIST, "enterList",
        "cmark reported a list node but said its list type is CMARK_NO_LIST?");
    if (type == CMARK_BULLET_LIST)
        return begin(MarkupKind::unorderedList);
    const auto start = static_cast<quint32>(cmark_node_get_list_start(node_));
    builder_.begin(Content{MarkupKind::orderedList, {}, {}, start}, range());
}

void MarkupConverterState::enterListItem()
{
    Content item{MarkupKind::listItem};
    // A task has the type of any item, and another name.
    if (typeName() == "tasklist") {
        const bool isChecked = cmark_gfm_extensions_get_tasklist_item_checked(node_);
        item.checkbox
            = static_cast<quint8>(static_cast<int>(isChecked ? Checkbox::checked : Checkbox::unchecked) + 1);
    }
    builder_.begin(item, range());
}

void MarkupConverterState::enterOfExtension(QByteArrayView type)
{
    if (type == "table_cell")
        builder_.begin(Content{MarkupKind::tableCell, {}, {}, 1, 1}, range());
    else if (type == "table_row" || type == "table_header")
        enterTableRow();
    else if (type == "table")
        enterTable();
    else if (type == "strikethrough")
        begin(MarkupKind::strikethrough);
    else
        qFatal("Unknown cmark node type '%s' encountered during conversion", type.data());
}

void MarkupConverterState::enterTable()
{
    const quint16 columns = cmark_gfm_extensions_get_table_columns(node_);
    const quint8* alignments = cmark_gfm_extensions_get_table_alignments(node_);
    QByteArray stored;
    for (quint16 column = 0; column < columns; ++column)
        stored += storedAlignment(alignments[column]);
    builder_.beginTable(stored, range());
    headerSeen_ = false;
}

void MarkupConverterState::enterTableRow()
{
    if (!headerSeen_) {
        headerSeen_ = true;
        return begin(MarkupKind::tableHead);
    }
    if (!pendingTableBody_) {
        pendingTableBody_ = PendingTableBody{range()};
        begin(MarkupKind::tableBody);
    }
    pendingTableBody_->range.end = range().end;
    begin(MarkupKind::tableRow);
}

void MarkupConverterState::leave()
{
    if (isOfExtension(node_) && typeName() == "table")
        leaveTable();
    builder_.end();
}

void MarkupConverterState::leaveTable()
{
    if (pendingTableBody_)
        builder_.extendRange(pendingTableBody_->range.end);
    else
        builder_.begin(Content{MarkupKind::tableBody});
    builder_.end();
    pendingTableBody_.reset();
}

} // namespace quor::markdown
