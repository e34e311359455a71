// SPDX-License-Identifier: MIT
#pragma once

#include "Support/TemporaryDataHome.h"
#include "Support/WaitFor.h"
#include "System/Bar.h"
#include "System/Menu.h"
#include "System/Publisher.h"

#include <gtest/gtest.h>

#include <memory>

namespace quor::test {

/// A desktop with the helper and another program, into which the user types. The test is the main
/// application.
class MenuFixture : public testing::Test {
protected:
    using Action = GroupStorage::Action;
    using Entry = MenuEntry::Entry;
    using Rows = std::vector<MenuEntry>;

    MenuFixture() { (void)publisher.bus.claim(publisher.bridge.mainAppBundleID); }

    void startHelper(const Program::Environment& changes = {})
    {
        const int before = publisher.posts;
        helper = std::make_unique<Program>(QStringLiteral("quor-menubar-helper"), QStringList(), changes);
        menu = std::make_unique<Menu>(reader, *helper);
        ASSERT_TRUE(waitFor([&] { return publisher.posts > before; })) << qPrintable(helper->errors());
        publisher.publish(MenubarStatusItemData());
        ASSERT_FALSE(nextItem({}).isNull());
    }

    static MenuEntry row(const QString& label, Entry::Action action = {})
    {
        Entry entry;
        entry.label = label;
        entry.action = std::move(action);
        return {entry};
    }
    static MenuEntry title(const QString& label)
    {
        Entry entry;
        entry.label = label;
        entry.isTitle = true;
        return {entry};
    }
    static Rows someRows()
    {
        return {{MenuEntry::Search{}}, title(QStringLiteral("Running")),
            row(QStringLiteral("Design"), {Entry::Action::Stop{QStringLiteral("T1")}}),
            {MenuEntry::AdjustStart{QStringLiteral("T1"), 1'700'000'000}},
            {MenuEntry::StopPast{QStringLiteral("T1")}}, {MenuEntry::Separator{}},
            row(QStringLiteral("Review"), {Entry::Action::Start{QStringLiteral("T2")}}),
            row(QStringLiteral("Nothing")), row(QStringLiteral("Show"), {Entry::Action::Show{}}),
            row(QStringLiteral("Quit"), {Entry::Action::Quit{}})};
    }
    static Rows manyRows(int count)
    {
        Rows rows{{MenuEntry::Search{}}};
        for (int i = 1; i < count; ++i)
            rows.push_back(row(QStringLiteral("Task %1").arg(i), {Entry::Action::Start{QString::number(i)}}));
        return rows;
    }

    [[nodiscard]] const GroupStorage& storage() const { return publisher.bridge.groupStorage; }
    [[nodiscard]] bool holds(const Action& action) const
    {
        return waitFor([&] { return storage().action() == action; }, std::chrono::seconds(15));
    }
    /// Waits until the helper has requested rows, and clears the request.
    [[nodiscard]] bool isAsked() const
    {
        const bool asked = holds({Action::RequestMenuEntries{}});
        storage().setAction({});
        return asked;
    }
    void answer(const Rows& rows) const
    {
        storage().setMenuEntryData(rows);
        publisher.request({Action::RequestMenuEntries{}});
    }
    /// Clicks into the top right corner of the screen, which belongs to the status item. Button 1 is the left
    /// one, 3 the right one.
    static void clickItem(int button = 1)
    {
        xdotool(QStringLiteral("mousemove 1279 0 click %1").arg(button));
    }
    void open(const Rows& rows = someRows())
    {
        clickItem();
        ASSERT_TRUE(isAsked());
        answer(rows);
        ASSERT_TRUE(menu->opens());
    }

    TemporaryDataHome home;
    Publisher publisher;
    ScreenReader reader;
    TypingWindow typing;
    std::unique_ptr<Program> helper;
    std::unique_ptr<Menu> menu;
};

} // namespace quor::test
