// SPDX-License-Identifier: MIT
#include "Peer/Model/MenuRows.h"

#include "Peer/Model/TextSearch.h"
#include "Peer/Tracked.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor::peer;
using quor::MenuEntry;
using quor::test::Tracked;

namespace {

const MenuTexts texts{u"Running"_s, u"Recent"_s, u"All"_s, u"None"_s, u"Show"_s, u"Quit"_s};

struct Describe {
    QString operator()(const MenuEntry::Entry& entry) const
    {
        using Action = MenuEntry::Entry::Action;
        if (entry.isTitle)
            return u"# "_s + entry.label;
        QString text = entry.label + (entry.iconName ? u' ' + *entry.iconName : QString());
        if (const auto* const start = std::get_if<Action::Start>(&entry.action.value))
            text += u" start "_s + start->taskID;
        if (const auto* const stop = std::get_if<Action::Stop>(&entry.action.value))
            text += u" stop "_s + stop->taskID;
        return text;
    }
    QString operator()(const MenuEntry::AdjustStart& row) const
    {
        return u"adjust %1 %2"_s.arg(row.taskID).arg(row.startTime, 0, 'f', 0);
    }
    QString operator()(const MenuEntry::StopPast& row) const { return u"past "_s + row.taskID; }
    QString operator()(const MenuEntry::Search&) const { return u"search"_s; }
    QString operator()(const MenuEntry::Separator&) const { return u"-"_s; }
};

std::string outline(const std::vector<MenuEntry>& rows)
{
    QStringList lines;
    for (const MenuEntry& row : rows)
        lines.append(std::visit(Describe(), row.value));
    return lines.join(u" | "_s).toStdString();
}

TEST(MenuRows, ListWhatRunsWhatRanAndAllElse)
{
    Tracked t(1'700'000'000);
    for (const auto& name : {u"Task 10"_s, u"Écrire"_s, u"Task 9"_s, u"Design"_s, u"Zoo"_s})
        t.tracker.addTask(name, {});
    EXPECT_EQ(outline(menuRows(t.tracker, u""_s, texts)),
        "search | # All | Design play start T4 | Écrire play start T2 | Task 9 play start T3 | "
        "Task 10 play start T1 | Zoo play start T5 | - | Show | Quit");

    for (const auto& id : {u"T1"_s, u"T3"_s, u"T4"_s}) {
        t.tracker.start(id);
        t.clock.advance(60);
    }
    t.tracker.stop(u"T3"_s);
    t.clock.advance(60);
    t.tracker.stop(u"T1"_s);
    EXPECT_EQ(outline(menuRows(t.tracker, u""_s, texts)),
        "search | # Running | Design stop stop T4 | adjust T4 1700000120 | past T4 | - | "
        "# Recent | Task 10 play start T1 | Task 9 play start T3 | - | "
        "# All | Écrire play start T2 | Task 9 play start T3 | Task 10 play start T1 | "
        "Zoo play start T5 | - | Show | Quit");
    EXPECT_EQ(outline(menuRows(t.tracker, u"TASK"_s, texts)),
        "search | # All | Task 9 play start T3 | Task 10 play start T1 | - | Show | Quit");
    EXPECT_EQ(outline(menuRows(t.tracker, u"sig"_s, texts)),
        "search | # Running | Design stop stop T4 | adjust T4 1700000120 | past T4 | - | Show | Quit");
    EXPECT_EQ(outline(menuRows(t.tracker, u"nothing"_s, texts)), "search | # None | - | Show | Quit");
}

TEST(TextSearch, FindsWhatReadsTheSame)
{
    const struct {
        QString sought, text;
        bool found;
    } cases[] = {
        {u"ecri"_s, u"Écrire"_s, true},
        {u"É"_s, u"ecrire"_s, true},
        {u"e\u0301crire"_s, u"\u00c9CRIRE"_s, true},
        {u"strasse"_s, u"Hauptstraße"_s, true},
        {u"ﬁn"_s, u"Final"_s, true},
        {u" design "_s, u"Web design"_s, true},
        {u""_s, u"anything"_s, true},
        {u" \u0301"_s, u"anything"_s, true},
        {u"x"_s, u""_s, false},
        {u"\U0001F469"_s, u"\U0001F469\u200D\U0001F467"_s, false}, // a woman is not the family
        {u"\u2764"_s, u"I \u2764\uFE0F tea"_s, true},
        {u"gd"_s, u"Design"_s, false},
    };
    for (const auto& each : cases)
        EXPECT_EQ(TextSearch(each.sought).isFoundIn(each.text), each.found)
            << each.sought.toStdString() << " in " << each.text.toStdString();
}

} // namespace
