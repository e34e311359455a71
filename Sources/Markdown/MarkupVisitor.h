// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Document.h"
#include "Markdown/Elements/BlockElements.h"
#include "Markdown/Elements/DoxygenElements.h"
#include "Markdown/Elements/InlineElements.h"
#include "Markdown/Elements/Table.h"
#include "Markdown/MarkupChildren.h"

namespace quor::markdown {

/// Base class of a class that computes a `Result` from an element, with one operation for each kind of
/// element. A subclass overrides the operations for the kinds that it handles. All other kinds call
/// `defaultVisit`, which the subclass must implement. `Result` can be `void`.
///
///     class HeadingCounter : public MarkupVisitor<int> {
///     public:
///         int defaultVisit(const Markup& markup) override
///         {
///             int count = 0;
///             for (const Markup& child : markup.children())
///                 count += visit(child);
///             return count;
///         }
///         int visitHeading(const Heading&) override { return 1; }
///     };
///
/// `visit` does not visit the children of an element. A visitor that visits them recursively, as this one
/// does, uses several hundred bytes of stack for each level of the tree. An untrusted text can be nested so
/// deeply that the recursion overflows the stack: use `MarkupWalk` for it.
///
/// The reference that an operation gets is valid only during the call. Copy the element to keep it.
template <class Result>
class MarkupVisitor {
public:
    virtual ~MarkupVisitor() = default;

    virtual Result defaultVisit(const Markup& markup) = 0;
    /// Calls the operation for the kind of `markup` and returns its result.
    virtual Result visit(const Markup& markup);

    virtual Result visitBlockQuote(const BlockQuote& element) { return defaultVisit(element); }
    virtual Result visitCodeBlock(const CodeBlock& element) { return defaultVisit(element); }
    virtual Result visitCustomBlock(const CustomBlock& element) { return defaultVisit(element); }
    virtual Result visitDocument(const Document& element) { return defaultVisit(element); }
    virtual Result visitHeading(const Heading& element) { return defaultVisit(element); }
    virtual Result visitThematicBreak(const ThematicBreak& element) { return defaultVisit(element); }
    virtual Result visitHTMLBlock(const HTMLBlock& element) { return defaultVisit(element); }
    virtual Result visitListItem(const ListItem& element) { return defaultVisit(element); }
    virtual Result visitOrderedList(const OrderedList& element) { return defaultVisit(element); }
    virtual Result visitUnorderedList(const UnorderedList& element) { return defaultVisit(element); }
    virtual Result visitParagraph(const Paragraph& element) { return defaultVisit(element); }
    virtual Result visitBlockDirective(const BlockDirective& element) { return defaultVisit(element); }
    virtual Result visitInlineCode(const InlineCode& element) { return defaultVisit(element); }
    virtual Result visitCustomInline(const CustomInline& element) { return defaultVisit(element); }
    virtual Result visitEmphasis(const Emphasis& element) { return defaultVisit(element); }
    virtual Result visitImage(const Image& element) { return defaultVisit(element); }
    virtual Result visitInlineHTML(const InlineHTML& element) { return defaultVisit(element); }
    virtual Result visitLineBreak(const LineBreak& element) { return defaultVisit(element); }
    virtual Result visitLink(const Link& element) { return defaultVisit(element); }
    virtual Result visitSoftBreak(const SoftBreak& element) { return defaultVisit(element); }
    virtual Result visitStrong(const Strong& element) { return defaultVisit(element); }
    virtual Result visitText(const Text& element) { return defaultVisit(element); }
    virtual Result visitStrikethrough(const Strikethrough& element) { return defaultVisit(element); }
    virtual Result visitTable(const Table& element) { return defaultVisit(element); }
    virtual Result visitTableHead(const Table::Head& element) { return defaultVisit(element); }
    virtual Result visitTableBody(const Table::Body& element) { return defaultVisit(element); }
    virtual Result visitTableRow(const Table::Row& element) { return defaultVisit(element); }
    virtual Result visitTableCell(const Table::Cell& element) { return defaultVisit(element); }
    virtual Result visitSymbolLink(const SymbolLink& element) { return defaultVisit(element); }
    virtual Result visitInlineAttributes(const InlineAttributes& element) { return defaultVisit(element); }
    virtual Result visitDoxygenDiscussion(const DoxygenDiscussion& element) { return defaultVisit(element); }
    virtual Result visitDoxygenNote(const DoxygenNote& element) { return defaultVisit(element); }
    virtual Result visitDoxygenParameter(const DoxygenParameter& element) { return defaultVisit(element); }
    virtual Result visitDoxygenReturns(const DoxygenReturns& element) { return defaultVisit(element); }

protected:
    MarkupVisitor() = default;
    MarkupVisitor(const MarkupVisitor&) = default;
    MarkupVisitor& operator=(const MarkupVisitor&) = default;
    MarkupVisitor(MarkupVisitor&&) noexcept = default;
    MarkupVisitor& operator=(MarkupVisitor&&) noexcept = default;
};

template <class Result>
Result MarkupVisitor<Result>::visit(const Markup& markup)
{
    switch (markup.kind()) {
    case MarkupKind::document:
        return visitDocument(Document(markup));
    case MarkupKind::blockQuote:
        return visitBlockQuote(BlockQuote(markup));
    case MarkupKind::codeBlock:
        return visitCodeBlock(CodeBlock(markup));
    case MarkupKind::customBlock:
        return visitCustomBlock(CustomBlock(markup));
    case MarkupKind::heading:
        return visitHeading(Heading(markup));
    case MarkupKind::thematicBreak:
        return visitThematicBreak(ThematicBreak(markup));
    case MarkupKind::htmlBlock:
        return visitHTMLBlock(HTMLBlock(markup));
    case MarkupKind::listItem:
        return visitListItem(ListItem(markup));
    case MarkupKind::orderedList:
        return visitOrderedList(OrderedList(markup));
    case MarkupKind::unorderedList:
        return visitUnorderedList(UnorderedList(markup));
    case MarkupKind::paragraph:
        return visitParagraph(Paragraph(markup));
    case MarkupKind::blockDirective:
        return visitBlockDirective(BlockDirective(markup));
    case MarkupKind::inlineCode:
        return visitInlineCode(InlineCode(markup));
    case MarkupKind::customInline:
        return visitCustomInline(CustomInline(markup));
    case MarkupKind::emphasis:
        return visitEmphasis(Emphasis(markup));
    case MarkupKind::image:
        return visitImage(Image(markup));
    case MarkupKind::inlineHTML:
        return visitInlineHTML(InlineHTML(markup));
    case MarkupKind::lineBreak:
        return visitLineBreak(LineBreak(markup));
    case MarkupKind::link:
        return visitLink(Link(markup));
    case MarkupKind::softBreak:
        return visitSoftBreak(SoftBreak(markup));
    case MarkupKind::strong:
        return visitStrong(Strong(markup));
    case MarkupKind::text:
        return visitText(Text(markup));
    case MarkupKind::strikethrough:
        return visitStrikethrough(Strikethrough(markup));
    case MarkupKind::table:
        return visitTable(Table(markup));
    case MarkupKind::tableHead:
        return visitTableHead(Table::Head(markup));
    case MarkupKind::tableBody:
        return visitTableBody(Table::Body(markup));
    case MarkupKind::tableRow:
        return visitTableRow(Table::Row(markup));
    case MarkupKind::tableCell:
        return visitTableCell(Table::Cell(markup));
    case MarkupKind::symbolLink:
        return visitSymbolLink(SymbolLink(markup));
    case MarkupKind::inlineAttributes:
        return visitInlineAttributes(InlineAttributes(markup));
    case MarkupKind::doxygenDiscussion:
        return visitDoxygenDiscussion(DoxygenDiscussion(markup));
    case MarkupKind::doxygenNote:
        return visitDoxygenNote(DoxygenNote(markup));
    case MarkupKind::doxygenParam:
        return visitDoxygenParameter(DoxygenParameter(markup));
    case MarkupKind::doxygenReturns:
        return visitDoxygenReturns(DoxygenReturns(markup));
    }
    Q_UNREACHABLE();
}

} // namespace quor::markdown
