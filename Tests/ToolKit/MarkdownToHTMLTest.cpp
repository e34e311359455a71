// SPDX-License-Identifier: MIT
#include "Markdown/Raw/RawMarkupBuilder.h"
#include "ToolKit/Markdown/MarkdownToHTMLVisitor.h"

#include <gtest/gtest.h>

using namespace quor::markdown;
using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

QString html(const QString& text)
{
    return MarkdownToHTMLVisitor().visit(Document(text));
}

TEST(MarkdownToHTML, RendersEachElement)
{
    struct Case {
        const char* text;
        const char* html;
    };
    for (const Case& c :
        std::initializer_list<Case>{{"", ""}, {"---", ""},
            {"Line one\nline two  \nthree", "<p>Line one<br/>line two<br/>three</p>"},
            {"> a\n\n## b *c*", "<blockquote><p>a</p></blockquote><h2>b <em>c</em></h2>"},
            {"```js\nx\n```", "<code>x\n</code>"}, {"`a<b`", "<p><code>a<b</code></p>"},
            {"a < b & \"c\"", "<p>a < b & “c”</p>"}, {"<div>\n&amp;\n</div>", "<div>\n&amp;\n</div>\n"},
            {"a<br>&amp;", "<p>a<br>&</p>"},
            {"- [x] a\n- b\n\n3. c", "<ul><li><p>a</p></li><li><p>b</p></li></ul><ol><li><p>c</p></li></ol>"},
            {"**a** ~~b~~", "<p><strong>a</strong> <del>b</del></p>"},
            {"![*a*](b 'c')![]()", R"(<p><img src="b"><img src=""></p>)"},
            {"[*a*](<b\"c>)[d]()", R"(<p><a href="b"c"><em>a</em></a><a href="#">d</a></p>)"},
            {"|a|b|c|d|\n|:-|:-:|-:|-|\n|e|",
                "<table><thead><tr><td style=\"text-align: left\">a</td><td style=\"text-align: "
                "center\">b</td>"
                "<td style=\"text-align: right; white-space: nowrap;\">c</td><td "
                "style=\"\">d</td></tr></thead>"
                "<tbody><tr><td style=\"text-align: left\">e</td><td style=\"text-align: center\"></td>"
                "<td style=\"text-align: right; white-space: nowrap;\"></td><td style=\"\"></td></tr></tbody>"
                "</table>"},
            {"|a|\n|-|", "<table><thead><tr><td style=\"\">a</td></tr></thead><tbody></tbody></table>"}})
        EXPECT_EQ(html(QString::fromUtf8(c.text)).toStdString(), c.html);
    EXPECT_EQ(html(u"a\0b"_s), u"<p>a\uFFFDb</p>");
}

TEST(MarkdownToHTML, RendersAnyElementInItsPlace)
{
    MarkdownToHTMLVisitor visitor;
    const Document document(u"|a|b|\n|-|:-|\n|c|d|"_s);
    const Markup row = *document.children().at(0)->children().at(1)->children().at(0);
    EXPECT_EQ(visitor.visit(*row.children().at(1)), u"<td style=\"text-align: left\">d</td>");
    EXPECT_EQ(visitor.visitTableRow(Table::Row(row)), visitor.visit(row));

    // Kinds without HTML become their children, and a cell outside of a table has no style.
    RawMarkupBuilder builder;
    builder.begin(RawMarkupData::literal(MarkupKind::doxygenParam, u"name"_s));
    builder.begin(RawMarkupData::plain(MarkupKind::tableRow));
    builder.begin(RawMarkupData::tableCell());
    builder.begin(RawMarkupData::literal(MarkupKind::customInline, u"not shown"_s));
    builder.leaf(RawMarkupData::literal(MarkupKind::text, u"shown"_s));
    for (int i = 0; i < 4; ++i)
        builder.end();
    EXPECT_EQ(visitor.visit(Markup(builder.finish())), u"<tr><td style=\"\">shown</td></tr>");
}

TEST(MarkdownToHTML, RendersAnyDepth)
{
    constexpr int levels = 100'000;
    EXPECT_EQ(html(u">"_s.repeated(levels) + u'a'),
        u"<blockquote>"_s.repeated(levels) + u"<p>a</p>"_s + u"</blockquote>"_s.repeated(levels));
}

} // namespace
