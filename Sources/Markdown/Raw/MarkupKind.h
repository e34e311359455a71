// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1String>

/// The kinds of element in a document. The parser never makes `customBlock`, `customInline`,
/// `blockDirective`, `symbolLink`, `inlineAttributes` and the kinds of Doxygen; a tree that is built with
/// `RawMarkupBuilder` can contain them.
namespace quor::markdown {

enum class MarkupKind : quint8 {
    document,
    blockQuote,
    codeBlock,
    customBlock,
    heading,
    thematicBreak,
    htmlBlock,
    listItem,
    orderedList,
    unorderedList,
    paragraph,
    blockDirective,
    inlineCode,
    customInline,
    emphasis,
    image,
    inlineHTML,
    lineBreak,
    link,
    softBreak,
    strong,
    text,
    strikethrough,
    table,
    tableHead,
    tableBody,
    tableRow,
    tableCell,
    symbolLink,
    inlineAttributes,
    doxygenDiscussion,
    doxygenNote,
    doxygenParam,
    doxygenReturns,
};

/// The name of the element class of this kind, as in "Heading" and "Table.Head".
[[nodiscard]] QLatin1StringView markupKindName(MarkupKind kind);

} // namespace quor::markdown
