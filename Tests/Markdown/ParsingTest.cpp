// SPDX-License-Identifier: MIT
#include "Markdown/CmarkTree.h"
#include "Markdown/MarkupVisitor.h"

#include <QThread>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <ctime>
#include <random>
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

/// Random lines, with all that means something in Markdown.
QByteArray randomMarkdown(unsigned seed)
{
    static constexpr const char* beginnings[]
        = {"> ", "- ", "- [x] ", "* [ ] ", "7. ", "1) ", "  ", "   ", "    ", "# ", "###### "};
    static constexpr const char* lines[] = {"", "===", "---", "***", "```", "~~~ c++ \"x\" & more",
        "<div class=\"a\">", "<!-- b", "-->", "<?php", "a|b\n:-|:-:", "|c|\n|-:|\n|d", "|*e*|f|g|",
        "[r]: <to here> \"The & title\"", "[ä]: /x"};
    static constexpr const char* inlines[] = {"word", " ", " \"quoted\" 'it's' ", "\"", "'", "--", "---",
        "...", "ß 😀 \xcc\x81", "`co|de`", "`` a`b ``", "<b class='x'>", "<https://a.b/?c=d&e>", "  \n",
        "\\\n", "&amp; &#0; &ouml; & <", "\\*", "*", "**", "_", "__", "~", "~~", "[", "![", "](u \"t\")",
        "](<a b>)", "]()", "]( 'only' )", "[r]", "[no][r]", "![ä][]", "|"};
    std::mt19937 random(seed);
    const auto oneOf = [&](const auto& choices) { return choices[random() % std::size(choices)]; };
    QByteArray text;
    QByteArray beginning;
    for (auto left = random() % 16; left > 0; --left) {
        if (random() % 2 == 0) {
            beginning.clear();
            for (auto depth = random() % 4; depth > 0; --depth)
                beginning += oneOf(beginnings);
        }
        text += beginning;
        if (random() % 3 == 0)
            text += oneOf(lines);
        else
            for (auto count = random() % 12; count > 0; --count)
                text += oneOf(inlines);
        text += '\n';
    }
    return text;
}

TEST(Parsing, BuildsTheTreeOfCmark)
{
    std::set<MarkupKind> seen;
    for (unsigned seed = 0; seed < 1500; ++seed) {
        const QByteArray text = randomMarkdown(seed);
        const Document document{QString::fromUtf8(text)};
        ASSERT_EQ(tree(document), cmarkTree(text, everyday)) << seed << '\n' << text.constData();
        const Document plain(QByteArrayView(text), {}, ParseOption::disableSmartOptions);
        ASSERT_EQ(tree(plain), cmarkTree(text, CMARK_OPT_SOURCEPOS | CMARK_OPT_VALIDATE_UTF8)) << seed;
        ASSERT_TRUE(isInOrder(document)) << seed;
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

TEST(Parsing, PutsTheRowsOfATableIntoABody)
{
    const Document document(u"|a|b|c|\n|-|-|-|\n|b|\n|cc|\n\n|d|\n|-|"_s);
    const Markup table = *document.children().at(0);
    EXPECT_EQ(table.children().at(0)->children().at(2)->indexInParent(), 2);
    const Markup body = *table.children().at(1);
    EXPECT_EQ(body.range(), (SourceRange{{3, 1}, {4, 4}}));
    EXPECT_EQ(body.children().at(0)->children().at(0)->as<Table::Cell>()->colspan(), 1U);
    const Markup empty = *document.children().at(1)->children().at(1);
    EXPECT_EQ(empty.as<Table::Body>()->childCount(), 0);
    EXPECT_FALSE(empty.range());
}

TEST(Parsing, TakesAnyDepth)
{
    struct Case {
        QString opening;
        QString closing;
        int levels; // in the tree, for each repetition
    };
    constexpr int times = 100'000;
    for (const Case& it : {Case{u">"_s, {}, 1}, Case{u"+ "_s, {}, 2}, Case{u"1. "_s, {}, 2},
             Case{u"*a **b "_s, u"c** d* "_s, 2}, Case{u"!["_s, u"](b)"_s, 1}, Case{u"~a "_s, u"b~ "_s, 1}}) {
        qsizetype depth = 0;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            depth
                = depthOf(Document(QString(it.opening.repeated(times) + u'x' + it.closing.repeated(times))));
        }));
        thread->setStackSize(512 * 1024); // a recursive parser would need some megabytes
        thread->start();
        thread->wait();
        EXPECT_GE(depth, times * it.levels) << qPrintable(it.opening);
    }
}

void expectPlain(const QByteArray& text)
{
    const Document document{QByteArrayView(text)};
    EXPECT_EQ(document.raw().node().subtreeCount, 3U) << text.first(20).constData();
    EXPECT_EQ(textOf(document).toUtf8(), text) << text.first(20).constData();
}

TEST(Parsing, ReturnsTextsThatNeedTooMuchMemoryAsPlainText)
{
    const QByteArray columns = QByteArray("|a").repeated(2000);
    expectPlain("[a]: " + QByteArray(100'000, 'u') + "\n\n" + QByteArray("[a] ").repeated(100'000));
    expectPlain(
        columns + '\n' + QByteArray(columns).replace('a', '-') + '\n' + QByteArray("|a\n").repeated(100'000));
    expectPlain(QByteArray("*a* ").repeated(1'500'000) + '.');
    EXPECT_GT(Document(QByteArray("Prose of *some* words.\n\n").repeated(50'000)).childCount(), 1);
    EXPECT_EQ(textOf(Document(u"~~a~~"_s)), u"a"); // after a jump out of the parser
}

std::chrono::duration<double> processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

// Texts that make much work. For most of them cmark-gfm alone takes time that grows with the square of the
// length.
TEST(Parsing, EndsSoon)
{
    struct Case {
        const char* first;
        const char* repeated;
    };
    for (const auto& [first, repeated] :
        std::initializer_list<Case>{{"", "\"'"}, {"\"a ", "'b\" "}, {"\"a _b ", "*c\"* "}, {"", "'*_"},
            {"~~a ", "b~ "}, {"- ", "\n"}, {"> ", "a\n"}, {">", "*a* "}, {">", "<#-.|))"}, {"", "![[]()"},
            {"", "<!A "}, {"", "a\n:-|:-|\n"}, {"", ".~@"}, {"", "'*~"}, {"", "\"~'"}, {"", "\"_*"},
            {"\"", "_(\\=.![]~-"}, {" +", ")`|#*[#>/&()"}, {">", "&((1++.="}, {"\"*", "~=\"*(a\"[!1"}}) {
        const QByteArray text
            = QByteArray(first).repeated(40'000) + QByteArray(repeated).repeated(200'000).first(100'000);
        const auto start = processorTime();
        const Document document{QByteArrayView(text)};
        EXPECT_LT((processorTime() - start).count(), 2) << first << repeated;
    }
}

TEST(Parsing, HappensOnManyThreads)
{
    const QByteArray text = QByteArray("~~a~~ \"b\"\n\n").repeated(10'000);
    const std::string expected = tree(Document(text));
    std::atomic<int> wrong = 0;
    std::array<std::thread, 3> threads;
    for (std::thread& thread : threads)
        thread = std::thread([&] {
            for (int round = 0; round < 4; ++round)
                wrong += tree(Document(text)) != expected ? 1 : 0;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

// A text that takes a second must not keep the others waiting until its end.
TEST(Parsing, IsNotHeldUpByAnotherThread)
{
    using Clock = std::chrono::steady_clock;
    std::atomic<bool> hasEnded = false;
    const auto start = Clock::now();
    std::thread hostile([&] {
        expectPlain(QByteArray("![[]()").repeated(50'000));
        hasEnded = true;
    });
    Clock::duration longest{};
    while (!hasEnded) {
        const auto before = Clock::now();
        const Document document(u"*a*"_s);
        longest = std::max(longest, Clock::now() - before);
    }
    hostile.join();
    EXPECT_LT(longest * 3, Clock::now() - start);
}

} // namespace
