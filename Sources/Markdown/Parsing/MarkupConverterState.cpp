// SPDX-License-Identifier: MIT
#include "Markdown/Parsing/MarkupConverterState.h"

#include <cmark-gfm-core-extensions.h>

namespace quor::markdown {

namespace {

using Content = RawMarkupBuilder::Content;

// cmark-gfm numbers the types of extensions after its own, in the order of registration.
constexpr unsigned lastBuiltInType = CMARK_NODE_FOOTNOTE_DEFINITION & CMARK_NODE_VALUE_MASK;

// cmark-gfm returns an empty text if there is no text.
QByteArrayView presentText(const char* text)
{
    return text && *text ? QByteArrayView(text) : QByteArrayView();
}

bool isOfExtension(cmark_node* node)
{
    return (cmark_node_get_type(node) & CMARK_NODE_VALUE_MASK) > lastBuiltInType;
}

std::optional<ColumnAlignment> columnAlignment(quint8 character)
{
    switch (character) {
    case 0:
        return std::nullopt;
    case 'l':
        return ColumnAlignment::left;
    case 'c':
        return ColumnAlignment::center;
    case 'r':
        return ColumnAlignment::right;
    default:
        qFatal("Unexpected table column character for cmark table: %c", character);
    }
}

} // namespace

MarkupConverterState::MarkupConverterState(cmark_node* root, ParseOptions options, RawMarkupBuilder& builder)
    : iterator_(cmark_iter_new(root)) // in the arena, which frees it
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
    default: // the types of extensions are known only at run time
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
    // A task has the same type as other items. Only the name of the type is different.
    if (typeName() == "tasklist") {
        const bool isChecked = cmark_gfm_extensions_get_tasklist_item_checked(node_);
        item.checkbox = isChecked ? Checkbox::checked : Checkbox::unchecked;
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
    const quint8* characters = cmark_gfm_extensions_get_table_alignments(node_);
    ColumnAlignments alignments;
    for (quint16 column = 0; column < columns; ++column)
        alignments.push_back(columnAlignment(characters[column]));
    builder_.beginTable(alignments, range());
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
