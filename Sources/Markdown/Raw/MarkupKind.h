// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1String>

/// The kinds of element that a document is made of. What comes from Markdown text is of the CommonMark kinds,
/// tables, strikethrough and check boxes; `customBlock`, `customInline`, `blockDirective`, `symbolLink`,
/// `inlineAttributes` and those of Doxygen are only ever built by hand.
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

/// The name of its class: "Heading", "Table.Head".
[[nodiscard]] QLatin1StringView markupKindName(MarkupKind kind);

} // namespace quor::markdown
