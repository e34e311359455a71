// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Document.h"
#include "Markdown/MarkupChildren.h"
#include "Markdown/MarkupWalk.h"

#include <cmark-gfm-core-extensions.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What every tree must fulfil, for random texts.
namespace quor::tests {

using Texts = std::array<QByteArrayView, 2>;

inline std::string description(
    std::string name, const Texts& texts, quint32 number, const markdown::SourceRange& range)
{
    for (const QByteArrayView& text : texts)
        name.append(" '").append(text.data(), static_cast<std::size_t>(text.size())) += '\'';
    if (range.start.line != 0) {
        for (const int position : {range.start.line, range.start.column, range.end.line, range.end.column})
            name += ' ' + std::to_string(position);
    }
    return name + ' ' + std::to_string(number) + " (";
}

inline std::string description(cmark_node* node)
{
    std::string name = cmark_node_get_type_string(node);
    int number = cmark_node_get_heading_level(node); // 0 for other kinds, as null for the texts below
    if (name == "list" && cmark_node_get_list_type(node) == CMARK_ORDERED_LIST) {
        name = "ordered";
        number = cmark_node_get_list_start(node);
    } else if (name == "tasklist" && cmark_gfm_extensions_get_tasklist_item_checked(node)) {
        name = "checked";
    } else if (name == "table") {
        for (int i = 0; i < cmark_gfm_extensions_get_table_columns(node); ++i)
            name += "-lcr"[std::string_view("\0lcr", 4)
                               .find(static_cast<char>(cmark_gfm_extensions_get_table_alignments(node)[i]))];
    }
    const char* text = cmark_node_get_literal(node);
    const char* detail = cmark_node_get_title(node);
    return description(name,
        {text ? text : cmark_node_get_url(node), detail ? detail : cmark_node_get_fence_info(node)},
        static_cast<quint32>(number),
        {{cmark_node_get_start_line(node), cmark_node_get_start_column(node)},
            {cmark_node_get_end_line(node), cmark_node_get_end_column(node)}});
}

inline std::string description(const markdown::Markup& markup)
{
    using markdown::MarkupKind;
    static constexpr std::array names{"document", "block_quote", "code_block", "", "heading",
        "thematic_break", "html_block", "item", "ordered", "list", "paragraph", "", "code", "", "emph",
        "image", "html_inline", "linebreak", "link", "softbreak", "strong", "text", "strikethrough", "table",
        "table_header", "", "table_row", "table_cell"};
    const markdown::RawMarkup& raw = markup.raw();
    std::string name = names.at(static_cast<std::size_t>(markup.kind()));
    if (raw.checkbox())
        name = *raw.checkbox() == markdown::Checkbox::checked ? "checked" : "tasklist";
    for (const auto& alignment : raw.columnAlignments())
        name += alignment ? "lcr"[static_cast<int>(*alignment)] : '-';
    const bool isNumbered = markup.kind() == MarkupKind::heading || markup.kind() == MarkupKind::orderedList;
    return description(name, {raw.utf8Text(), raw.utf8Detail()}, isNumbered ? raw.node().first : 0,
        markup.range().value_or(markdown::SourceRange{}));
}

/// The tree of cmark-gfm as text.
inline std::string cmarkTree(QByteArrayView text, int options)
{
    cmark_gfm_core_extensions_ensure_registered();
    const std::unique_ptr<cmark_parser, void (*)(cmark_parser*)> parser(
        cmark_parser_new(options), cmark_parser_free);
    for (const char* name : {"table", "strikethrough", "tasklist"})
        cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(name));
    cmark_parser_feed(parser.get(), text.data(), static_cast<std::size_t>(text.size()));
    const std::unique_ptr<cmark_node, void (*)(cmark_node*)> root(
        cmark_parser_finish(parser.get()), cmark_node_free);
    const std::unique_ptr<cmark_iter, void (*)(cmark_iter*)> iterator(
        cmark_iter_new(root.get()), cmark_iter_free);
    std::string result;
    for (cmark_event_type event{}; (event = cmark_iter_next(iterator.get())) != CMARK_EVENT_DONE;) {
        cmark_node* node = cmark_iter_get_node(iterator.get());
        const bool isLeaf = !cmark_node_first_child(node); // some leaves have no event to leave them
        if (event == CMARK_EVENT_ENTER)
            result += description(node) + (isLeaf ? ")\n" : "\n");
        else if (!isLeaf)
            result += ")\n";
    }
    return result;
}

/// Our tree as text. It is that of cmark-gfm if it has every kind, text, number and place.
inline std::string tree(const markdown::Document& document)
{
    std::string result;
    for (markdown::MarkupWalk walk(document); walk.next();) {
        const markdown::Markup& markup = walk.markup();
        if (markup.kind() == markdown::MarkupKind::tableBody)
            continue; // cmark-gfm has no table bodies
        if (walk.event() == markdown::MarkupWalk::Event::enter)
            result += description(markup) + (markup.childCount() == 0 ? "" : "\n");
        else
            result += ")\n";
    }
    return result;
}

/// Whether the elements are numbered in walking order, and parents and children agree about each other.
inline bool isInOrder(const markdown::Document& document)
{
    quint64 next = 0;
    for (markdown::MarkupWalk walk(document); walk.next();) {
        const markdown::Markup& markup = walk.markup();
        if (walk.event() == markdown::MarkupWalk::Event::leave)
            continue;
        if (markup.id() != markdown::MarkupIdentifier{document.id().rootId, next++})
            return false;
        std::vector<markdown::Markup> children;
        for (const markdown::Markup& child : markup.children()) {
            if (child.parent() != markup || child.indexInParent() != std::ssize(children))
                return false;
            children.push_back(child);
        }
        if (std::ssize(children) != markup.childCount())
            return false;
        for (const markdown::Markup& child : markup.children().reversed()) {
            if (children.empty() || child != children.back())
                return false;
            children.pop_back();
        }
        if (!children.empty())
            return false;
    }
    return next == document.raw().node().subtreeCount;
}

} // namespace quor::tests
