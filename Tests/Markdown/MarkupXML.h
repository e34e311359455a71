// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Document.h"
#include "Markdown/MarkupWalk.h"

#include <cmark-gfm-core-extensions.h>

#include <cstdlib>
#include <memory>
#include <string>

/// A text as XML, once rendered by cmark-gfm and once from our tree. Both are equal if our tree has every
/// kind, literal, address and place that cmark-gfm has. What our tree does not keep, the tightness and the
/// delimiter of lists, is removed.
namespace quor::tests {

inline std::string cmarkXML(QByteArrayView text, int options)
{
    cmark_gfm_core_extensions_ensure_registered();
    const std::unique_ptr<cmark_parser, void (*)(cmark_parser*)> parser(
        cmark_parser_new(options), cmark_parser_free);
    for (const char* name : {"table", "strikethrough", "tasklist"})
        cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(name));
    cmark_parser_feed(parser.get(), text.data(), static_cast<std::size_t>(text.size()));
    const std::unique_ptr<cmark_node, void (*)(cmark_node*)> root(
        cmark_parser_finish(parser.get()), cmark_node_free);
    const std::unique_ptr<char, void (*)(void*)> rendered(cmark_render_xml(root.get(), options), std::free);
    std::string xml = rendered.get();
    xml.erase(0, xml.find("<document"));
    for (const char* attribute :
        {" tight=\"true\"", " tight=\"false\"", " delim=\"period\"", " delim=\"paren\""}) {
        // Quotes in literals are escaped, so this finds only attributes.
        for (std::size_t at = 0; (at = xml.find(attribute, at)) != std::string::npos;)
            xml.erase(at, std::char_traits<char>::length(attribute));
    }
    return xml;
}

inline std::string escaped(QByteArrayView text)
{
    return text.toByteArray()
        .replace('&', "&amp;")
        .replace('<', "&lt;")
        .replace('>', "&gt;")
        .replace('"', "&quot;")
        .toStdString();
}

inline std::string elementName(const markdown::Markup& markup)
{
    static constexpr std::array names{"document", "block_quote", "code_block", "", "heading",
        "thematic_break", "html_block", "item", "list", "list", "paragraph", "", "code", "", "emph", "image",
        "html_inline", "linebreak", "link", "softbreak", "strong", "text", "strikethrough", "table",
        "table_header", "", "table_row", "table_cell"};
    return markup.raw().checkbox() ? "tasklist" : names.at(static_cast<std::size_t>(markup.kind()));
}

inline std::string attributes(const markdown::Markup& markup)
{
    using markdown::MarkupKind;
    const markdown::RawMarkup& raw = markup.raw();
    switch (markup.kind()) {
    case MarkupKind::document:
        return " xmlns=\"http://commonmark.org/xml/1.0\"";
    case MarkupKind::heading:
        return " level=\"" + std::to_string(raw.node().first) + '"';
    case MarkupKind::orderedList:
        return " type=\"ordered\" start=\"" + std::to_string(raw.node().first) + '"';
    case MarkupKind::unorderedList:
        return " type=\"bullet\"";
    case MarkupKind::link:
    case MarkupKind::image:
        return " destination=\"" + escaped(raw.utf8Text()) + "\" title=\"" + escaped(raw.utf8Detail()) + '"';
    case MarkupKind::codeBlock:
        return raw.utf8Detail().isNull() ? "" : " info=\"" + escaped(raw.utf8Detail()) + '"';
    case MarkupKind::listItem:
        if (!raw.checkbox())
            return "";
        return *raw.checkbox() == markdown::Checkbox::checked ? " completed=\"true\""
                                                              : " completed=\"false\"";
    case MarkupKind::tableCell: {
        if (markup.parent()->kind() != MarkupKind::tableHead)
            return "";
        static constexpr std::array names{"left", "center", "right"};
        const auto alignment
            = markup.parent()->parent()->raw().columnAlignment(static_cast<quint32>(markup.indexInParent()));
        return alignment ? std::string(" align=\"") + names.at(static_cast<std::size_t>(*alignment)) + '"'
                         : "";
    }
    default:
        return "";
    }
}

inline bool isLiteral(markdown::MarkupKind kind)
{
    using markdown::MarkupKind;
    return kind == MarkupKind::text || kind == MarkupKind::inlineCode || kind == MarkupKind::codeBlock
        || kind == MarkupKind::htmlBlock || kind == MarkupKind::inlineHTML;
}

inline std::string markupXML(const markdown::Document& document)
{
    std::string xml;
    std::size_t depth = 0;
    for (markdown::MarkupWalk walk(document); walk.next();) {
        const markdown::Markup& markup = walk.markup();
        if (markup.kind() == markdown::MarkupKind::tableBody)
            continue; // cmark-gfm has no table bodies
        const std::string name = elementName(markup);
        const bool isLeaf = markup.childCount() == 0;
        if (walk.event() == markdown::MarkupWalk::Event::leave) {
            if (!isLeaf)
                xml.append(2 * --depth, ' ').append("</" + name + ">\n");
            continue;
        }
        xml.append(2 * depth, ' ').append("<" + name);
        if (const auto range = markup.range())
            xml += " sourcepos=\"" + std::to_string(range->start.line) + ':'
                + std::to_string(range->start.column) + '-' + std::to_string(range->end.line) + ':'
                + std::to_string(range->end.column) + '"';
        xml += attributes(markup);
        if (isLiteral(markup.kind()))
            xml += " xml:space=\"preserve\">" + escaped(markup.raw().utf8Text()) + "</" + name + ">\n";
        else
            xml += isLeaf ? " />\n" : ">\n";
        depth += isLeaf ? 0 : 1;
    }
    return xml;
}

} // namespace quor::tests
