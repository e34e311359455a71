// SPDX-License-Identifier: MIT
// How the menu reacts to clicks and keys, and which window has the focus afterwards.
#include "System/MenuFixture.h"

#include <QSet>

#include <cmath>

using namespace quor;
using namespace quor::test;
using namespace Qt::StringLiterals;

namespace {

class MenuFocus : public MenuFixture { };
class MovedItem : public MenuFixture { };

/// A way to open or close the menu.
struct Way {
    const char* what;
    const char* xdotool; ///< Null if the main application requests it.
};

TEST_F(MenuFocus, ComesAndGoesHoweverTheMenuOpensAndCloses)
{
    const Way opening[]{{"left click", "mousemove 1279 3 click 1"},
        {"right click", "mousemove 1279 3 click 3"}, {"main application", nullptr}};
    const Way closing[]{{"Escape", "key Escape"}, {"second click", "mousemove 1279 3 click 1"},
        {"main application", nullptr}};
    startHelper();
    const auto go = [&](const Way& way) {
        if (way.xdotool)
            xdotool(QString::fromLatin1(way.xdotool));
        else
            publisher.request({Action::OpenMenu{}});
    };
    for (const Way& in : opening) {
        for (const Way& out : closing) {
            SCOPED_TRACE(testing::Message() << in.what << ", then " << out.what);
            const QImage plain = shownItem(); // each time, as its text changes every minute
            go(in);
            ASSERT_TRUE(isAsked());
            EXPECT_TRUE(menu->frame().isNull()) << "no window before the rows";
            answer(someRows());
            ASSERT_TRUE(menu->opens());
            ASSERT_TRUE(waitFor([this] { return hasFocus(helper->pid()); }));
            EXPECT_TRUE(waitFor([&] { return shownItem() != plain; })) << "highlighted";
            go(out);
            ASSERT_TRUE(menu->closes());
            EXPECT_TRUE(typing.takes(u"x"_s));
            EXPECT_TRUE(shows(plain));
        }
    }
}

TEST_F(MenuFocus, IsGivenBackByAChoiceUnlessTheMainApplicationComesToTheFront)
{
    struct Choice {
        QString thing;
        QString keys; ///< The keys that do the same; empty if only the pointer can.
        Action action;
        int further; ///< As in `Menu::click`.
        enum { stays, closes, givesBack } then;
    };
    const Choice choices[]{
        {u"Design"_s, u"Down Return"_s, {Action::StopTimer{u"T1"_s, 0}}, 0, Choice::givesBack},
        {u"Review"_s, u"Down Down Return"_s, {Action::StartTimer{u"T2"_s}}, 0, Choice::givesBack},
        {u"Show"_s, u"Down Down Down Down KP_Enter"_s, {Action::OpenQuor{}}, 0, Choice::closes},
        {u"Quit"_s, u"Down Down Down Down Down Return"_s, {Action::QuitQuor{}}, 0, Choice::closes},
        {u"Nothing"_s, u"Down Down Down Return"_s, {}, 0, Choice::stays},
        {u"Running"_s, {}, {}, 0, Choice::stays},
        {u"5 minutes earlier"_s, {}, {Action::AdjustTimer{u"T1"_s, -300}}, 0, Choice::stays},
        {u"5 minutes later"_s, {}, {Action::AdjustTimer{u"T1"_s, 300}}, 0, Choice::stays},
        {u"End of last entry"_s, {}, {Action::AdjustTimer{u"T1"_s, 0}}, 0, Choice::stays},
        {u"10 minutes earlier"_s, {}, {}, 1, Choice::stays},
        {u"Stop now"_s, {}, {Action::StopTimer{u"T1"_s, 0}}, 0, Choice::givesBack},
    };
    startHelper();
    const bool hasWindowManager = qEnvironmentVariable("QUOR_TEST_WM") != "none"_L1;
    for (const Choice& choice : choices) {
        for (const bool byKeys : {false, true}) {
            if (byKeys && choice.keys.isEmpty())
                continue;
            storage().setAction({});
            SCOPED_TRACE(
                testing::Message() << choice.thing.toStdString() << (byKeys ? " by keys" : " by click"));
            open();
            ASSERT_TRUE(menu->shows(choice.thing));
            if (byKeys) {
                ASSERT_TRUE(waitFor([this] { return hasFocus(helper->pid()); }));
                xdotool(u"key "_s + choice.keys);
            } else {
                ASSERT_TRUE(menu->click(choice.thing, choice.further));
            }
            EXPECT_TRUE(holds(choice.action));
            if (choice.then == Choice::stays) {
                EXPECT_TRUE(menu->hover(u"Quit"_s)) << "it is still there";
                xdotool(u"key Escape"_s);
            }
            ASSERT_TRUE(menu->closes());
            EXPECT_EQ(storage().action(), choice.action) << "and nothing else";
            if (choice.then != Choice::closes) {
                EXPECT_TRUE(typing.takes(u"x"_s));
                continue;
            }
            if (!hasWindowManager) { // a window manager gives the focus to a window of its choice
                EXPECT_FALSE(hasFocus(typing.pid()));
            }
            ASSERT_TRUE(typing.takesFocus());
        }
    }
}

TEST_F(MenuFocus, StaysWhereAClickOutsidePutsIt)
{
    startHelper();
    TypingWindow other({400, 300});
    open();
    ASSERT_TRUE(waitFor([this] { return hasFocus(helper->pid()); }));
    xdotool(u"mousemove %1 %2 click 1"_s.arg(typing.middle.x()).arg(typing.middle.y()));
    ASSERT_TRUE(menu->closes());
    EXPECT_TRUE(typing.takes(u"x"_s));
    EXPECT_EQ(other.text(), QString());
}

TEST_F(MenuFocus, TextTypedAtOnceIsSearchedForHoweverLateTheRows)
{
    startHelper();
    clickItem();
    ASSERT_TRUE(isAsked()); // so the click has arrived; the rows have not
    xdotool(u"type --delay 1 Desi"_s);
    answer(someRows());
    xdotool(u"type --delay 1 GN"_s);
    EXPECT_TRUE(waitFor([this] { return storage().searchTerm() == "design"_L1; }))
        << qPrintable(storage().searchTerm());
    EXPECT_EQ(typing.text(), QString());
    // The caret stays in the field while the arrows walk.
    xdotool(u"key Down Down"_s);
    EXPECT_TRUE(menu->selects(u"Review"_s));
    xdotool(u"type s"_s);
    EXPECT_TRUE(waitFor([this] { return storage().searchTerm() == "designs"_L1; }));
    xdotool(u"key Escape"_s);
    ASSERT_TRUE(menu->closes());
    EXPECT_TRUE(typing.takes(u"x"_s));
}

TEST_F(MenuFocus, TheWindowHangsUnderTheItemAtEachScaleAndIsNeverElsewhere)
{
    for (const double scale : {1.0, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        startHelper({{u"QT_SCALE_FACTOR"_s, QString::number(scale)}});
        clickItem();
        ASSERT_TRUE(isAsked());
        answer(someRows());
        QSet<QString> seen;
        EXPECT_TRUE(waitFor([&] {
            const QRect frame = menu->frame();
            if (!frame.isNull())
                seen += u"%1 %2 %3"_s.arg(frame.x()).arg(frame.y()).arg(frame.width());
            return !seen.isEmpty() && hasFocus(helper->pid()) && menu->find(u"Quit"_s);
        }));
        const QRect narrow = menu->frame();
        EXPECT_EQ(seen, QSet{u"%1 %2 %3"_s.arg(narrow.x()).arg(narrow.y()).arg(narrow.width())});
        EXPECT_EQ(narrow.top(), std::lround(22 * scale));
        EXPECT_EQ(narrow.right(), 1279);
        EXPECT_LT(narrow.width(), 500 * scale);
        Rows wide = someRows();
        wide.push_back(row(QString(200, u'w')));
        answer(wide);
        EXPECT_TRUE(waitFor([&] { return menu->frame().width() == std::lround(500 * scale); }));
        EXPECT_EQ(menu->frame().topRight(), narrow.topRight());
        helper.reset();
    }
}

TEST_F(MovedItem, AClickThatMovesTheItemOpensNothing)
{
    startHelper();
    const int before = publisher.posts;
    xdotool(u"keydown Super_L mousemove 1279 3 click 1 click 3 keyup Super_L"_s);
    open();
    EXPECT_EQ(publisher.posts, before + 1);
}

/// The helper with the example's main application.
class MenuAndPeer : public testing::Test {
protected:
    MenuAndPeer()
    {
        EXPECT_TRUE(waitFor([] {
            Program probe(u"quor-peer"_s, {u"status"_s});
            return probe.ends() && probe.exitCode() == 0;
        }));
        peer({u"add"_s, u"Design"_s, u"Planning"_s, u"Review"_s});
        EXPECT_FALSE(nextItem({}).isNull());
    }
    /// The running timers, in hours and minutes: "Design 00:31, Review 00:05".
    static QString running()
    {
        QStringList timers;
        for (const QString& line : peer({u"status"_s}).split(u'\n')) {
            const QStringList fields = line.split(u'\t');
            if (fields.value(0) == "running"_L1)
                timers += fields.value(4) + u' ' + fields.value(3).left(5);
        }
        return timers.join(u", "_s);
    }
    static bool runs(const QString& timers)
    {
        return waitFor([&] { return running() == timers; }, std::chrono::seconds(15));
    }

    const TemporaryDataHome home;
    ScreenReader reader;
    TypingWindow typing;
    Program main{u"quor-peer"_s, {u"serve"_s}};
    Program helper{u"quor-menubar-helper"_s};
    Menu menu{reader, helper};
};

TEST_F(MenuAndPeer, SearchStartRewindAndStop)
{
    xdotool(u"mousemove 1279 3 click 1 type pLaN"_s);
    ASSERT_TRUE(menu.shows(u"Planning"_s));
    EXPECT_TRUE(waitFor([&] { return !menu.find(u"Review"_s); })) << "filtered";
    xdotool(u"key Down Return"_s);
    EXPECT_TRUE(runs(u"Planning 00:00"_s));
    EXPECT_TRUE(menu.closes());
    EXPECT_TRUE(typing.takes(u"x"_s)) << "and nothing before: " << qPrintable(typing.text());

    peer({u"start"_s, u"Review"_s, u"--ago"_s, u"50"_s});
    peer({u"stop"_s, u"Review"_s, u"--ago"_s, u"40.5"_s});
    peer({u"open-menu"_s});
    ASSERT_TRUE(menu.click(u"10 minutes earlier"_s));
    EXPECT_TRUE(runs(u"Planning 00:10"_s));
    xdotool(u"key Up"_s); // from the button to the row that runs
    ASSERT_TRUE(menu.hover(u"Planning"_s));
    xdotool(u"key Left"_s);
    EXPECT_TRUE(runs(u"Planning 00:11"_s));
    ASSERT_TRUE(menu.click(u"End of last entry"_s));
    EXPECT_TRUE(runs(u"Planning 00:40"_s));
    ASSERT_TRUE(menu.click(u"30 minutes earlier"_s, 1));
    ASSERT_TRUE(menu.click(u"Stop 30 min. ago"_s));
    EXPECT_TRUE(runs({}));
    const QString tasks = peer({u"list"_s});
    EXPECT_TRUE(tasks.contains(u"00:10:"_s)) << "what was left of it: " << qPrintable(tasks);
    EXPECT_TRUE(menu.closes());
    EXPECT_TRUE(typing.takes(u"y"_s));
}

TEST_F(MenuAndPeer, KeysAloneFromOpeningToQuitting)
{
    peer({u"open-menu"_s});
    ASSERT_TRUE(menu.shows(u"Show Quor"_s));
    xdotool(u"key Down Down Down Down Return"_s);
    EXPECT_TRUE(waitFor([this] { return main.output().contains(u"front"_s); }));
    EXPECT_TRUE(menu.closes());
    peer({u"open-menu"_s});
    ASSERT_TRUE(menu.shows(u"Quit Quor"_s));
    xdotool(u"key Down Down Down Down Down Return"_s);
    EXPECT_TRUE(main.ends());
    EXPECT_TRUE(helper.ends());
    EXPECT_EQ(helper.exitCode(), 0) << qPrintable(helper.errors());
}

TEST_F(MenuAndPeer, TheItemShowsStartsStopsAndSettingsAsTheyHappen)
{
    const QColor green(0x00, 0xCA, 0x8F);
    peer({u"add"_s, u"Sketch"_s, u"--color"_s, u"00CA8F"_s});
    peer({u"set"_s, u"menuBarShowDailyTotal=true"_s, u"menuBarShowActiveTask=true"_s,
        u"menuBarShowDayProgress=false"_s, u"menuBarShowRunningTimer=true"_s});
    peer({u"start"_s, u"Sketch"_s});
    EXPECT_TRUE(waitFor([&] { return countOf(green, shownItem()) > 20; }));
    const QImage running = shownItem();
    peer({u"set"_s, u"menuBarShowActiveTask=false"_s});
    EXPECT_LT(nextItem(running).width(), running.width());
    peer({u"stop"_s});
    EXPECT_TRUE(waitFor([&] { return countOf(green, shownItem()) == 0; }));
    peer({u"kill-helper"_s});
    EXPECT_TRUE(helper.ends());
    EXPECT_EQ(helper.exitCode(), 0) << qPrintable(helper.errors());
}

} // namespace
