// SPDX-License-Identifier: MIT
#include "../Tests/Markdown/CmarkTree.h"
#include "ToolKit/Markdown/MarkdownToHTMLVisitor.h"

#include <cstdint>
#include <cstdlib>

using namespace quor::markdown;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Returns the HTML of a document, joined from the visitor's HTML of its children.
void requireHTMLOfParts(const Document& document, const QString& html)
{
    QString parts;
    for (const Markup& block : document.children())
        parts += quor::toolkit::MarkdownToHTMLVisitor().visit(block);
    require(parts == html);
}

} // namespace

// Any bytes as Markdown: the tree agrees with the parser below in every kind, literal and place, is in order,
// and becomes HTML.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArrayView text(bytes, static_cast<qsizetype>(size));
    const Document document(text);
    require(quor::tests::tree(document)
        == quor::tests::cmarkTree(text, CMARK_OPT_SOURCEPOS | CMARK_OPT_SMART | CMARK_OPT_VALIDATE_UTF8));
    require(quor::tests::isInOrder(document));
    requireHTMLOfParts(document, quor::toolkit::MarkdownToHTMLVisitor().visit(document));
    return 0;
}
