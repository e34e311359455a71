// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Calendar.h"

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

/// A pool of ICU calendars for one `Calendar` and its copies: as many as threads use at the same time.
///
/// An ICU calendar is expensive to create and holds the moment that it computes with. So each is lent to one
/// caller at a time and kept for the next. When the user's settings change, all are replaced. Any thread.
class Calendar::Engine final {
public:
    /// An ICU calendar, returned to the pool at the end of the loan. False if ICU has no data. The engine
    /// must outlive it.
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
    [[nodiscard]] QString dateFormat(const QString& skeleton);

private:
    void giveBack(std::unique_ptr<icu::Calendar> calendar, int generation);

    // With the lock held:
    void followUser();
    void makePrototype();
    [[nodiscard]] icu::Locale localeWithCalendar() const;

    const Settings settings_;
    std::mutex mutex_; ///< guards all members below
    QLocale default_; ///< the default locale that `locale_` was derived from
    QLocale locale_;
    QTimeZone zone_;
    std::unique_ptr<icu::Calendar> prototype_; ///< null if ICU has no data
    std::vector<std::unique_ptr<icu::Calendar>> idle_;
    QHash<QString, QString> formats_; ///< patterns by skeleton
    int generation_ = 0; ///< incremented when the user's settings change
};

} // namespace quor::platform
