// SPDX-License-Identifier: MIT
#include "Markdown/DocumentGenerator.h"
#include "Markdown/MarkupVisitor.h"
#include "Markdown/MarkupXML.h"

#include <gtest/gtest.h>

#include <atomic>
#include <pthread.h>
#include <set>
#include <thread>

using namespace quor::markdown;
using namespace quor::tests;
using namespace Qt::StringLiterals;

namespace {

constexpr int everyday = CMARK_OPT_SOURCEPOS | CMARK_OPT_SMART;

/// The strings of all `Text` elements.
QString textOf(const Document& document)
{
    QString result;
    for (MarkupWalk walk(document); walk.next();) {
        const auto text = walk.markup().as<Text>();
        if (text && walk.event() == MarkupWalk::Event::enter)
            result += text->string();
    }
    return result;
}

qsizetype depthOf(const Document& document)
{
    qsizetype depth = 0;
    qsizetype deepest = 0;
    for (MarkupWalk walk(document); walk.next();) {
        depth += walk.event() == MarkupWalk::Event::enter ? 1 : -1;
        deepest = std::max(deepest, depth);
    }
    return deepest;
}

TEST(Parsing, BuildsTheTreeOfCmark)
{
    std::set<MarkupKind> seen;
    for (unsigned seed = 0; seed < 1500; ++seed) {
        const QByteArray text = DocumentGenerator(seed).blocks(4);
        const Document document{QString::fromUtf8(text)};
        ASSERT_EQ(markupXML(document), cmarkXML(text, everyday)) << seed << '\n' << text.constData();
        const Document plain(QByteArrayView(text), {}, ParseOption::disableSmartOptions);
        ASSERT_EQ(markupXML(plain), cmarkXML(text, CMARK_OPT_SOURCEPOS | CMARK_OPT_VALIDATE_UTF8)) << seed;
        for (MarkupWalk walk(document); walk.next();)
            seen.insert(walk.markup().kind());
    }
    EXPECT_EQ(seen.size(), 25) << "all kinds but the nine that the parser never makes";
}

TEST(Parsing, MakesTextOfAnyBytes)
{
    const QString replacement(QChar::ReplacementCharacter);
    EXPECT_EQ(textOf(Document(QByteArrayView("a\0b", 3))), u'a' + replacement + u'b');
    EXPECT_EQ(textOf(Document(QByteArrayView("a\xff\xc3"))), u'a' + replacement + replacement);
    EXPECT_EQ(textOf(Document(QString(u"a"_s + QChar(0xD83D) + u'b'))), u'a' + replacement + u'b');
    EXPECT_EQ(textOf(Document(QString(u"a"_s + QChar(0xD83D)))), u'a' + replacement);
    EXPECT_EQ(textOf(Document(u"a\0😀"_s)), u'a' + replacement + u"😀"_s);
    EXPECT_EQ(Document(QStringView()).childCount(), 0);
    EXPECT_EQ(Document(QByteArrayView()).range()->start, (SourceLocation{1, 1}));
}

TEST(Parsing, TakesItsOptions)
{
    const QString text = u"\"a\" -- b"_s;
    EXPECT_EQ(textOf(Document(text)), u"“a” – b");
    const Document plain(
        text, QUrl(u"a:b"_s), {ParseOption::disableSmartOptions, ParseOption::disableSourcePosOptions});
    EXPECT_EQ(textOf(plain), text);
    EXPECT_EQ(plain.source(), QUrl(u"a:b"_s));
    for (MarkupWalk walk(plain); walk.next();)
        EXPECT_FALSE(walk.markup().range());
    EXPECT_EQ((*Document(text).children().begin()).range(), (SourceRange{{1, 1}, {1, 8}}));
}

TEST(Parsing, KeepsTheContentsOfElements)
{
    const Document document(
        u"- [x] a\n- b\n\n7) c\n\n```c d\ne\n```\n\n|f|g|h|\n|:-|-|-:|\n\n[i]()![](j 'k')"_s);
    std::vector<Markup> blocks;
    for (const Markup& block : document.children())
        blocks.push_back(block);
    ASSERT_EQ(blocks.size(), 5);
    EXPECT_EQ(blocks[0].children().at(0)->as<ListItem>()->checkbox(), Checkbox::checked);
    EXPECT_FALSE(blocks[0].children().at(1)->as<ListItem>()->checkbox());
    EXPECT_EQ(blocks[1].as<OrderedList>()->startIndex(), 7U);
    EXPECT_EQ(blocks[2].as<CodeBlock>()->language(), u"c d");
    EXPECT_EQ(blocks[2].as<CodeBlock>()->code(), u"e\n");
    const Table table = *blocks[3].as<Table>();
    using enum ColumnAlignment;
    EXPECT_EQ(table.columnAlignments(), (ColumnAlignments{left, std::nullopt, right}));
    EXPECT_EQ(table.children().at(0)->children().at(2)->indexInParent(), 2);
    EXPECT_EQ(table.children().at(1)->as<Table::Body>()->childCount(), 0);
    EXPECT_FALSE(table.children().at(1)->range());
    EXPECT_FALSE(blocks[4].children().at(0)->as<Link>()->destination());
    EXPECT_EQ(blocks[4].children().at(1)->as<Image>()->source(), u"j");
    EXPECT_EQ(blocks[4].children().at(1)->as<Image>()->title(), u"k");

    const Document rows(u"|a|\n|-|\n|b|\n|cc|\n"_s);
    const Markup body = *rows.children().at(0)->children().at(1);
    EXPECT_EQ(body.range(), (SourceRange{{3, 1}, {4, 4}}));
    EXPECT_EQ(body.children().at(0)->children().at(0)->as<Table::Cell>()->colspan(), 1U);
}

struct Nesting {
    QString opening;
    QString closing;
    int levels; // in the tree, for each repetition
    qsizetype depth = 0;
};

// A recursive parser would need some megabytes of stack.
void onASmallStack(Nesting& nesting)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{512} * 1024);
    pthread_t thread{};
    const auto run = [](void* argument) -> void* {
        auto* it = static_cast<Nesting*>(argument);
        it->depth = depthOf(
            Document(QString(it->opening.repeated(100'000) + u'x' + it->closing.repeated(100'000))));
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &nesting), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

TEST(Parsing, TakesAnyDepth)
{
    for (Nesting nesting : {Nesting{u">"_s, {}, 1}, {u"+ "_s, {}, 2}, {u"1. "_s, {}, 2},
             {u"*a **b "_s, u"c** d* "_s, 2}, {u"!["_s, u"](b)"_s, 1}, {u"~a "_s, u"b~ "_s, 1}}) {
        onASmallStack(nesting);
        EXPECT_GE(nesting.depth, 100'000 * nesting.levels) << qPrintable(nesting.opening);
    }
}

TEST(Parsing, ReturnsHostileTextsAsPlainText)
{
    // The first two make cmark-gfm request gigabytes, the last one keeps it busy for minutes.
    const QString address(100'000, u'u');
    const QString columns = u"|a"_s.repeated(2000);
    for (const QString& text : {u"[a]: "_s + address + u"\n\n"_s + u"[a] "_s.repeated(100'000),
             columns + u'\n' + QString(columns).replace(u'a', u'-') + u'\n' + u"|a\n"_s.repeated(100'000),
             u"![[]()"_s.repeated(100'000)}) {
        const Document document(text);
        EXPECT_EQ(document.raw().node().subtreeCount, 3U);
        EXPECT_EQ(textOf(document), text);
    }
    EXPECT_EQ(textOf(Document(u"~~a~~"_s)), u"a");
}

TEST(Parsing, MayHappenOnManyThreads)
{
    const QString text = u"~~a~~ b\n\n"_s.repeated(500);
    const std::string expected = markupXML(Document(text));
    std::atomic<int> wrong = 0;
    constexpr int count = 4;
    std::vector<std::thread> threads;
    threads.reserve(count);
    for (int i = 0; i < count; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 20; ++round)
                wrong += markupXML(Document(text)) != expected ? 1 : 0;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
