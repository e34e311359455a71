// SPDX-License-Identifier: MIT
#pragma once

#include "Support/WaitFor.h"
#include "ToolKit/Calendar/Stores/EventStore.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace quor::test {

/// A folder of calendars, with one named "Work" in it.
class CalendarsTest : public testing::Test {
protected:
    CalendarsTest() { EXPECT_FALSE(there_.saveCalendar(work_, true)); }

    std::shared_ptr<toolkit::EventCalendar> newCalendar(const QString& title)
    {
        auto calendar = there_.newCalendar(toolkit::EntityType::event);
        calendar->setTitle(title);
        calendar->setSource(there_.sources().front());
        return calendar;
    }
    [[nodiscard]] QString workID() const { return work_->calendarIdentifier(); }

    template <class Items>
    static QStringList titles(const Items& items)
    {
        QStringList titles;
        for (const auto& item : items)
            titles += item->title();
        titles.sort();
        return titles;
    }

    const toolkit::Date start_ = platform::dateFromSeconds(1'700'000'000);
    const toolkit::Date end_ = start_ + std::chrono::hours(24);
    QTemporaryDir folder_;
    std::atomic<toolkit::AuthorizationStatus> status_ = toolkit::AuthorizationStatus::fullAccess;
    std::atomic<std::thread::id> exempt_; ///< this thread has access in spite of the status
    const toolkit::EventStoreOptions options_{folder_.path(), [this](auto) {
                                                  return exempt_ == std::this_thread::get_id()
                                                      ? toolkit::AuthorizationStatus::fullAccess
                                                      : status_.load();
                                              }};
    toolkit::EventStore there_{{folder_.path(), {}}}; ///< another program's store
    const std::shared_ptr<toolkit::EventCalendar> work_ = newCalendar(QStringLiteral("Work"));
};

} // namespace quor::test
