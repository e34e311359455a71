// SPDX-License-Identifier: MIT
#include "../Tests/Markdown/MarkupXML.h"
#include "Markdown/MarkupChildren.h"
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

void requireOrder(const Document& document)
{
    quint64 next = 0;
    for (MarkupWalk walk(document); walk.next();) {
        const Markup& markup = walk.markup();
        if (walk.event() == MarkupWalk::Event::leave)
            continue;
        require(markup.id().childId == next++);
        std::vector<MarkupIdentifier> children;
        for (const Markup& child : markup.children()) {
            require(child.parent() == markup);
            children.push_back(child.id());
        }
        for (const Markup& child : markup.children().reversed()) {
            require(child.id() == children.back());
            children.pop_back();
        }
        require(children.empty());
    }
    require(next == document.raw().node().subtreeCount);
}

} // namespace

// Any bytes as Markdown: the tree agrees with the parser below in every kind, literal and place, is in order,
// and becomes HTML.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArrayView text(bytes, static_cast<qsizetype>(size));
    const Document document(text);
    require(quor::tests::markupXML(document)
        == quor::tests::cmarkXML(text, CMARK_OPT_SOURCEPOS | CMARK_OPT_SMART | CMARK_OPT_VALIDATE_UTF8));
    requireOrder(document);
    requireHTMLOfParts(document, quor::toolkit::MarkdownToHTMLVisitor().visit(document));
    return 0;
}
