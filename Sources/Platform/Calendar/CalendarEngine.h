// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Calendar.h"
#include "Platform/Calendar/UserCalendarSettings.h"

#include <QHash>

#include <unicode/calendar.h>
#include <unicode/locid.h>

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace quor::platform {

struct Calendar::Settings {
    std::optional<QLocale> locale;
    std::optional<QTimeZone> timeZone;
    std::optional<QByteArray> identifier;
    std::optional<int> firstWeekday;
    std::optional<int> minimumDaysInFirstWeek;
};

/// ICU's calendars for one `Calendar` and its copies: as many as threads use it at once.
///
/// They cost much to make, and hold the moment that they work on, so each is lent to one caller at a
/// time and kept for the next. All are made anew when the user's settings change. Any thread.
class Calendar::Engine final {
public:
    /// One of ICU's calendars, for the time being; none if ICU has no data. Its engine must outlive it.
    class Loan final {
    public:
        Loan(Engine& engine, std::unique_ptr<icu::Calendar> calendar, int generation);
        ~Loan();
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;

        explicit operator bool() const { return calendar_ != nullptr; }
        icu::Calendar& operator*() const { return *calendar_; }
        icu::Calendar* operator->() const { return calendar_.get(); }

    private:
        friend class Engine;

        Engine& engine_;
        std::unique_ptr<icu::Calendar> calendar_;
        int generation_;
    };

    explicit Engine(Settings settings);

    [[nodiscard]] const Settings& settings() const { return settings_; }
    [[nodiscard]] Loan borrow();
    [[nodiscard]] QLocale locale();
    /// With the calendar as a keyword.
    [[nodiscard]] icu::Locale icuLocale();
    [[nodiscard]] QString dateFormat(const QString& skeleton);

private:
    void giveBack(std::unique_ptr<icu::Calendar> calendar, int generation);
    void followUser(); ///< with the lock held, as all below
    void makePrototype();
    [[nodiscard]] icu::Locale localeWithCalendar() const;

    const Settings settings_;
    std::mutex mutex_; ///< guards what follows
    QLocale default_; ///< that `locale_` was found for
    QLocale locale_;
    MachineZone machineZone_;
    QByteArray zone_;
    std::unique_ptr<icu::Calendar> prototype_;
    std::vector<std::unique_ptr<icu::Calendar>> idle_;
    QHash<QString, QString> formats_; ///< by skeleton
    int generation_ = 0; ///< counts changes of the user's settings
};

} // namespace quor::platform
