// SPDX-License-Identifier: MIT
#include "Markdown/MarkupVisitor.h"
#include "Markdown/Raw/RawMarkupBuilder.h"

#include <gtest/gtest.h>

using namespace quor::markdown;
using namespace Qt::StringLiterals;

namespace {

TEST(Markup, OutlivesTheDocument)
{
    std::optional<Markup> text;
    {
        const Document document(u"> *a*"_s);
        EXPECT_NE(document.id(), Document(u"> *a*"_s).id());
        for (text = document; text->childCount() > 0;)
            text = text->children().at(0);
    }
    EXPECT_EQ(text->as<Text>()->string(), u"a");
    EXPECT_EQ(text->parent()->kind(), MarkupKind::emphasis);
    EXPECT_FALSE(text->as<Emphasis>());
    EXPECT_FALSE(text->children().at(0));
    while (text->parent())
        text = text->parent();
    EXPECT_EQ(text->id().childId, 0U);
    EXPECT_EQ(text->as<Document>()->childCount(), 1);
}

/// A node of each kind with contents.
std::vector<RawMarkupData> dataOfAllKinds()
{
    using Data = RawMarkupData;
    std::vector<Data> all{Data::codeBlock(u"a"_s, u"b"_s), Data::heading(6),
        Data::listItem(Checkbox::unchecked), Data::orderedList(5),
        Data::blockDirective(u"c"_s, {3, 4}, u"d"_s), Data::image({}, u"e"_s), Data::link(u""_s),
        Data::table({ColumnAlignment::center, std::nullopt}), Data::tableCell(2, 3)};
    for (const MarkupKind kind :
        {MarkupKind::htmlBlock, MarkupKind::inlineCode, MarkupKind::customInline, MarkupKind::inlineHTML,
            MarkupKind::text, MarkupKind::symbolLink, MarkupKind::inlineAttributes, MarkupKind::doxygenParam})
        all.push_back(Data::literal(kind, u"ß"_s + markupKindName(kind)));
    for (const MarkupKind kind : {MarkupKind::document, MarkupKind::blockQuote, MarkupKind::customBlock,
             MarkupKind::thematicBreak, MarkupKind::unorderedList, MarkupKind::paragraph,
             MarkupKind::emphasis, MarkupKind::lineBreak, MarkupKind::softBreak, MarkupKind::strong,
             MarkupKind::strikethrough, MarkupKind::tableHead, MarkupKind::tableBody, MarkupKind::tableRow,
             MarkupKind::doxygenDiscussion, MarkupKind::doxygenNote, MarkupKind::doxygenReturns})
        all.push_back(Data::plain(kind));
    return all;
}

/// Returns the content of an element, so that the result shows which operation was called.
class ContentReader : public MarkupVisitor<QString> {
public:
    QString defaultVisit(const Markup& markup) override { return u"any "_s + markupKindName(markup.kind()); }
    QString visitCodeBlock(const CodeBlock& it) override { return it.code() + *it.language(); }
    QString visitHeading(const Heading& it) override { return QString::number(it.level()); }
    QString visitListItem(const ListItem& it) override { return it.checkbox() ? u"task"_s : u"item"_s; }
    QString visitOrderedList(const OrderedList& it) override { return QString::number(it.startIndex()); }
    QString visitBlockDirective(const BlockDirective& it) override
    {
        return it.name() + it.arguments() + QString::number(it.nameLocation().column);
    }
    QString visitImage(const Image& it) override { return it.source() ? u"source"_s : *it.title(); }
    QString visitLink(const Link& it) override { return it.title() ? u"title"_s : *it.destination(); }
    QString visitTable(const Table& it) override { return QString::number(it.columnAlignments().size()); }
    QString visitTableCell(const Table::Cell& it) override
    {
        return QString::number(it.colspan()) + QString::number(it.rowspan());
    }
    QString visitHTMLBlock(const HTMLBlock& it) override { return it.rawHTML(); }
    QString visitInlineCode(const InlineCode& it) override { return it.code(); }
    QString visitCustomInline(const CustomInline& it) override { return it.text(); }
    QString visitInlineHTML(const InlineHTML& it) override { return it.rawHTML(); }
    QString visitText(const Text& it) override { return it.string(); }
    QString visitSymbolLink(const SymbolLink& it) override { return *it.destination(); }
    QString visitInlineAttributes(const InlineAttributes& it) override { return it.attributes(); }
    QString visitDoxygenParameter(const DoxygenParameter& it) override { return it.name(); }
    QString visitThematicBreak(const ThematicBreak&) override { return u"rule"_s; }
    QString visitTableHead(const Table::Head&) override { return u"head"_s; }
    QString visitDoxygenReturns(const DoxygenReturns&) override { return u"returns"_s; }
};

TEST(Markup, OfAnyKindIsBuiltByHandAndVisited)
{
    const std::vector<RawMarkupData> all = dataOfAllKinds();
    ASSERT_EQ(all.size(), static_cast<std::size_t>(MarkupKind::doxygenReturns) + 1);
    RawMarkupBuilder builder;
    builder.begin(RawMarkupData::plain(MarkupKind::document), SourceRange{{1, 2}, {3, 4}});
    for (const RawMarkupData& data : all)
        builder.leaf(data);
    builder.end();
    const Document document(Markup(builder.finish()));
    EXPECT_EQ(document.range(), (SourceRange{{1, 2}, {3, 4}}));
    QStringList contents;
    for (const Markup& child : document.children()) {
        EXPECT_EQ(child.raw().data(), all.at(static_cast<std::size_t>(child.indexInParent())));
        contents += ContentReader().visit(child);
    }
    EXPECT_EQ(contents.join(u','),
        u"ab,6,task,5,cd4,e,,2,23,ßHTMLBlock,ßInlineCode,ßCustomInline,ßInlineHTML,ßText,ßSymbolLink,"
        "ßInlineAttributes,ßDoxygenParameter,any Document,any BlockQuote,any CustomBlock,rule,any "
        "UnorderedList,"
        "any Paragraph,any Emphasis,any LineBreak,any SoftBreak,any Strong,any Strikethrough,head,any "
        "Table.Body,"
        "any Table.Row,any DoxygenDiscussion,any DoxygenNote,returns");
}

} // namespace
