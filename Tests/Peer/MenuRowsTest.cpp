// SPDX-License-Identifier: MIT
#include "Peer/Model/MenuRows.h"

#include "Peer/Model/TextSearch.h"
#include "Peer/Tracked.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor::peer;
using quor::MenuEntry;
using quor::test::Tracked;

namespace {

const MenuTexts texts{u"Running"_s, u"Recent"_s, u"All"_s, u"None"_s, u"Show"_s, u"Quit"_s};

QString described(const MenuEntry& row)
{
    if (const auto* const adjust = std::get_if<MenuEntry::AdjustStart>(&row.value))
        return u"adjust %1 %2"_s.arg(adjust->taskID).arg(adjust->startTime, 0, 'f', 0);
    if (const auto* const past = std::get_if<MenuEntry::StopPast>(&row.value))
        return u"past "_s + past->taskID;
    const auto* const entry = std::get_if<MenuEntry::Entry>(&row.value);
    if (!entry)
        return std::holds_alternative<MenuEntry::Search>(row.value) ? u"search"_s : u"-"_s;
    using Action = MenuEntry::Entry::Action;
    const QString label = entry->label + u' ' + entry->iconName.value_or(QString());
    if (const auto* const start = std::get_if<Action::Start>(&entry->action.value))
        return label + u" start "_s + start->taskID;
    if (const auto* const stop = std::get_if<Action::Stop>(&entry->action.value))
        return label + u" stop "_s + stop->taskID;
    return entry->isTitle ? u"# "_s + entry->label : entry->label;
}

std::string outline(const Tracked& tracked, const QString& searchTerm)
{
    QStringList lines;
    for (const MenuEntry& row : menuRows(tracked.tracker, searchTerm, texts))
        lines.append(described(row));
    return lines.join(u" | "_s).toStdString();
}

TEST(MenuRows, ListWhatRunsWhatRanAndAllElse)
{
    Tracked t(1'700'000'000, {u"Task 10"_s, u"Écrire"_s, u"Task 9"_s, u"Design"_s, u"Zoo"_s});
    for (const auto& id : {u"T1"_s, u"T3"_s, u"T4"_s}) {
        t.tracker.start(id);
        t.clock.advance(60);
    }
    t.tracker.stop(u"T3"_s);
    t.clock.advance(60);
    t.tracker.stop(u"T1"_s);
    EXPECT_EQ(outline(t, u""_s),
        "search | # Running | Design stop stop T4 | adjust T4 1700000120 | past T4 | - | "
        "# Recent | Task 10 play start T1 | Task 9 play start T3 | - | "
        "# All | Écrire play start T2 | Task 9 play start T3 | Task 10 play start T1 | "
        "Zoo play start T5 | - | Show | Quit");
    EXPECT_EQ(outline(t, u"sig"_s),
        "search | # Running | Design stop stop T4 | adjust T4 1700000120 | past T4 | - | Show | Quit");
    EXPECT_EQ(outline(t, u"nothing"_s), "search | # None | - | Show | Quit");
}

TEST(TextSearch, FindsWhatReadsTheSame)
{
    const std::pair<QString, QString> same[] = {{u"ecri"_s, u"Écrire"_s}, {u"strasse"_s, u"Hauptstraße"_s},
        {u"ﬁn"_s, u"Final"_s}, {u" design "_s, u"Web design"_s}, {u"\u2764"_s, u"I \u2764\uFE0F tea"_s}};
    for (const auto& [sought, text] : same)
        EXPECT_TRUE(TextSearch(sought).isFoundIn(text)) << sought.toStdString();
    EXPECT_FALSE(TextSearch(u"gd"_s).isFoundIn(u"Design"_s));
    EXPECT_FALSE(TextSearch(u"\U0001F469"_s).isFoundIn(u"\U0001F469\u200D\U0001F467"_s))
        << "a part of a family";
}

} // namespace
