// SPDX-License-Identifier: MIT
#include "Markdown/Raw/MarkupKind.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quor::markdown {

QLatin1StringView markupKindName(MarkupKind kind)
{
    constexpr std::array names{"Document"_L1, "BlockQuote"_L1, "CodeBlock"_L1, "CustomBlock"_L1, "Heading"_L1,
        "ThematicBreak"_L1, "HTMLBlock"_L1, "ListItem"_L1, "OrderedList"_L1, "UnorderedList"_L1,
        "Paragraph"_L1, "BlockDirective"_L1, "InlineCode"_L1, "CustomInline"_L1, "Emphasis"_L1, "Image"_L1,
        "InlineHTML"_L1, "LineBreak"_L1, "Link"_L1, "SoftBreak"_L1, "Strong"_L1, "Text"_L1,
        "Strikethrough"_L1, "Table"_L1, "Table.Head"_L1, "Table.Body"_L1, "Table.Row"_L1, "Table.Cell"_L1,
        "SymbolLink"_L1, "InlineAttributes"_L1, "DoxygenDiscussion"_L1, "DoxygenNote"_L1,
        "DoxygenParameter"_L1, "DoxygenReturns"_L1};
    static_assert(names.size() == static_cast<std::size_t>(MarkupKind::doxygenReturns) + 1);
    return names.at(static_cast<std::size_t>(kind));
}

} // namespace quor::markdown
