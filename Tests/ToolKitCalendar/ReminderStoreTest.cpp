// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/ReminderStore.h"
#include "ToolKit/Deferred/EventProtocol.h"
#include "ToolKitCalendar/CalendarsFixture.h"

using namespace Qt::StringLiterals;
using namespace quor::toolkit;

namespace quor::test {
namespace {

using ReminderStoreTest = CalendarsTest;

TEST_F(ReminderStoreTest, ReadsWhatIsDue)
{
    const auto home = newCalendar(u"Home"_s);
    ASSERT_FALSE(there_.saveCalendar(home, true));
    const auto add = [&](const auto& calendar, const QString& title, int hours, bool isDone = false) {
        const auto reminder = there_.newReminder();
        reminder->setCalendar(calendar);
        reminder->setTitle(title);
        reminder->setDueDate(start_ + std::chrono::hours(hours));
        reminder->setCompleted(isDone);
        EXPECT_FALSE(there_.saveReminder(reminder, true));
    };
    add(work_, u"now"_s, 0);
    add(work_, u"done"_s, 1, true);
    add(work_, u"tomorrow"_s, 24);
    add(home, u"later"_s, 2);

    ReminderStore store(options_);
    bool isAnswered = false;
    store.remindersFor(start_, end_, std::nullopt, [&](const auto& due) { isAnswered = due.empty(); });
    EXPECT_TRUE(isAnswered && store.reminderCalendars().empty()) << "before access was requested";
    EXPECT_TRUE(store.requestAccess().result() && store.hasFullAccess() && !store.isAccessUndetermined());

    EXPECT_EQ(titles(store.reminderCalendars()), (QStringList{u"Home"_s, u"Work"_s}));
    EXPECT_EQ(titles(store.remindersFor(start_, end_).result()), (QStringList{u"later"_s, u"now"_s}));
    EXPECT_EQ(titles(store.remindersFor(start_, end_, {{home}}).result()), QStringList(u"later"_s));
    std::atomic<bool> isElsewhere = false;
    store.remindersFor(start_, end_, std::nullopt, [&](const auto&) { isElsewhere = !isMainThread(); });
    EXPECT_TRUE(waitFor([&] { return isElsewhere.load(); }));

    int changes = 0;
    store.startObserving(0.1, [&] { ++changes; });
    add(home, u"new"_s, 3);
    EXPECT_TRUE(waitFor([&] { return changes == 1; }));
    status_ = AuthorizationStatus::denied;
    EXPECT_TRUE(store.remindersFor(start_, end_).result().empty() && store.reminderCalendars().empty());
    EXPECT_FALSE(store.requestAccess().result());
}

} // namespace
} // namespace quor::test
