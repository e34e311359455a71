// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/CalendarStore.h"
#include "Support/TestLog.h"
#include "ToolKitCalendar/CalendarsFixture.h"
#include "ToolKitCalendar/TestCalendars.h"

using namespace Qt::StringLiterals;
using namespace quor::toolkit;

namespace quor::test {
namespace {

class CalendarStoreTest : public CalendarsTest {
protected:
    [[nodiscard]] std::unique_ptr<CalendarStore> open() const
    {
        auto store = std::make_unique<CalendarStore>(options_);
        EXPECT_TRUE(store->requestAccess().result()) << "the main thread may wait";
        return store;
    }
    void save(CalendarStore& store, const QString& title, int hours = 1) const
    {
        const auto event = store.newEvent(workID());
        event->setTitle(title);
        event->setStartDate(start_);
        event->setEndDate(start_ + std::chrono::hours(hours));
        store.saveEvent(event);
    }
    /// The titles that `store` reads, after all that it does on its queue.
    QStringList seen(CalendarStore& store) const
    {
        return titles(store.eventsFor(workID(), start_, end_).result());
    }
    QStringList onDisk() { return titles(there_.eventsMatching(there_.predicateForEvents(start_, end_))); }
};

TEST_F(CalendarStoreTest, CommitsASecondAfterTheLastChange)
{
    const auto store = open();
    save(*store, u"a"_s);
    save(*store, u"b"_s);
    EXPECT_EQ(seen(*store), (QStringList{u"a"_s, u"b"_s}));
    QElapsedTimer sinceLast;
    DelayedAction later(0.6);
    later.run([&] {
        sinceLast.start();
        save(*store, u"ends before it starts, which counts, too"_s, -1);
    });
    EXPECT_TRUE(waitFor([&] { return !onDisk().isEmpty(); }));
    EXPECT_TRUE(sinceLast.isValid() && sinceLast.elapsed() >= 1000);
    EXPECT_TRUE(waitFor([&] { return onDisk() == QStringList({u"a"_s, u"b"_s}); }));

    store->deleteCalendarEvent(store->eventsFor(workID(), start_, end_).result().front());
    EXPECT_TRUE(seen(*store).size() == 1 && onDisk().size() == 2);
    EXPECT_TRUE(waitFor([&] { return onDisk().size() == 1; }));
}

TEST_F(CalendarStoreTest, AnswersWithNothingAtOnceWhereThereIsNothing)
{
    CalendarStore store(options_);
    int answers = 0;
    const auto count = [&](const auto& events) { answers += events.empty() ? 1 : 0; };
    store.eventsFor(workID(), start_, end_, count);
    EXPECT_TRUE(answers == 1 && store.eventsFor(workID(), start_, end_).isFinished());
    EXPECT_TRUE(!store.calendar(workID()) && !store.newEvent(workID()) && store.calendarSources().empty());
    EXPECT_FALSE(store.createCalendar(*work_->source(), u"x"_s, Qt::red));

    std::optional<bool> granted;
    store.requestAccess([&](bool isGranted) { granted = isGranted; });
    EXPECT_FALSE(granted) << "a later turn of the main queue";
    EXPECT_TRUE(waitFor([&] { return granted.has_value(); }) && *granted);
    store.eventsFor(u"local/nothing"_s, start_, end_, count);
    EXPECT_EQ(answers, 2);
    store.saveEvent(nullptr);
    store.eventsFor(workID(), start_, end_, count);
    EXPECT_EQ(answers, 2) << "the completion runs on a later turn of the main queue";
    EXPECT_TRUE(waitFor([&] { return answers == 3; }));

    for (const auto status : {AuthorizationStatus::notDetermined, AuthorizationStatus::denied}) {
        status_ = status;
        EXPECT_EQ(store.isAccessUndetermined(), status == AuthorizationStatus::notDetermined);
        EXPECT_FALSE(store.hasFullAccess() || store.calendar(workID()));
    }
    EXPECT_FALSE(store.requestAccess().result());
}

TEST_F(CalendarStoreTest, FailuresGoToTheLogAlone)
{
    const TestLog testLog;
    exempt_ = std::this_thread::get_id();
    const auto store = open();
    save(*store, u"staged"_s);
    ASSERT_EQ(seen(*store).size(), 1);
    status_ = AuthorizationStatus::denied;
    save(*store, u"refused"_s);
    store->deleteCalendarEvent(store->newEvent(workID()));
    store->deleteCalendar(workID());
    EXPECT_FALSE(store->createCalendar({u"no/source"_s, u"?"_s}, u"x"_s, Qt::red));
    EXPECT_TRUE(seen(*store).isEmpty());
    EXPECT_EQ(there_.calendars(EntityType::event).size(), 1U);
    EXPECT_FALSE(there_.removeCalendar(work_, true)) << "so that there is nowhere to commit to";
    const auto log = [&] { return testLog.text().toStdString(); };
    EXPECT_TRUE(waitFor([&] { return log().find(": Error saving: ") != std::string::npos; }));
    for (const char* line :
        {"saveEvent:[0-9]+: Error saving Event: .", "deleteCalendarEvent:[0-9]+: Error deleting Event: .",
            "deleteCalendar:[0-9]+: Error deleting Calendar: .",
            "createCalendar:[0-9]+: Error saving Calendar: .", "saveDelayed:[0-9]+: Error saving: ."})
        EXPECT_THAT(log(), testing::ContainsRegex(std::string(": CalendarStore\\.") + line));
}

TEST_F(CalendarStoreTest, ListsMakesAndRemovesCalendars)
{
    const auto store = open();
    const auto made = store->createCalendar(*work_->source(), u"Home"_s, QColor(0x33, 0x66, 0x99));
    ASSERT_TRUE(made && store->calendar(made->calendarIdentifier())->color() == QColor(0x33, 0x66, 0x99));
    const auto list = store->calendarSources();
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(std::get<CalendarStore::CalendarSource::Source>(list[0].value).source, *work_->source());
    EXPECT_EQ(std::get<CalendarStore::CalendarSource::Calendar>(list[1].value).calendar->title(), u"Home"_s);

    // A second request makes a new store: objects of the first keep their values, uncommitted changes are
    // lost.
    const auto known = store->calendar(workID());
    save(*store, u"never committed"_s);
    ASSERT_EQ(seen(*store).size(), 1);
    work_->setTitle(u"Play"_s);
    ASSERT_FALSE(there_.saveCalendar(work_, true));
    EXPECT_TRUE(store->requestAccess().result() && seen(*store).isEmpty());
    store->refreshSources();
    EXPECT_EQ(known->title() + store->calendar(workID())->title(), u"WorkPlay"_s);

    store->deleteCalendar(made->calendarIdentifier());
    EXPECT_TRUE(waitFor([&] { return store->calendarSources().size() == 2; }));
}

TEST_F(CalendarStoreTest, EachObserverHearsOfABurstOnce)
{
    const auto store = open();
    CalendarStore witness(options_);
    int calls = 0;
    int witnessed = 0;
    store->startObserving(0.3, [&] { ++calls; });
    store->startObserving(0.3, [&] { ++calls; });
    witness.startObserving(0.6, [&] { ++witnessed; });
    const auto burst = [&](const QString& name) {
        for (const QString& title : {name + u'1', name + u'2', name + u'3'})
            writeFile(folder_.filePath(workID() + u'/' + title + u".ics"_s),
                TestCalendars::calendar(TestCalendars::event(
                    title.toUtf8(), "DTSTART:20231114T230000Z\nSUMMARY:" + title.toUtf8())));
    };
    burst(u"a"_s);
    EXPECT_TRUE(waitFor([&] { return witnessed == 1; }));
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(seen(*store), (QStringList{u"a1"_s, u"a2"_s, u"a3"_s}));
    burst(u"b"_s);
    store->stopObserving();
    EXPECT_TRUE(waitFor([&] { return witnessed == 2; }));
    EXPECT_EQ(calls, 2);
}

TEST_F(CalendarStoreTest, EndsAtAnyMoment)
{
    auto store = open();
    const auto other = open();
    store->startObserving(0, [] { FAIL() << "it has ended"; });
    save(*store, u"staged"_s);
    ASSERT_EQ(seen(*store).size(), 1);
    QCoreApplication::processEvents(); // which starts the second
    save(*store, u"on its way"_s);
    int answers = 0;
    store->eventsFor(
        workID(), start_, end_, [&](const auto& events) { answers += events.size() == 2 ? 1 : 0; });
    store->requestAccess([&](bool) { ++answers; });
    store.reset();
    save(*other, u"kept"_s);
    EXPECT_TRUE(waitFor([&] { return !onDisk().isEmpty(); }));
    EXPECT_TRUE(onDisk() == QStringList(u"kept"_s) && answers == 2);
}

} // namespace
} // namespace quor::test
