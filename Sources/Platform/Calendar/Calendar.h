// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/DateComponents.h"
#include "Platform/Services/Clock.h"

#include <QByteArray>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QTimeZone>

#include <initializer_list>
#include <memory>
#include <optional>

namespace quor::platform {

/// Moments as days, weeks, months and years, in a calendar, a time zone and the habits of a region.
///
/// Starts as the user's, and follows: the default locale (or what `LC_TIME` says, until the program
/// sets a default) and the machine's time zone, each as it stands at the call; a change of the
/// machine's zone file counts within a second. What is set stays. A value, cheap to copy: a copy is
/// set on its own. Const operations may run on any threads at once, without waiting for each other.
///
/// Moments up to `furthest` seconds from 1970 have a place in a calendar. Of others, and of NaN, every
/// operation gives an absent result or false.
class Calendar final {
public:
    enum class Unit { year, month, weekOfYear, day, hour, minute, second };

    /// Which of the moments that one reading of the clock may name. Where clocks are put back there
    /// are two; where they are put forward there is none, and `first` is the moment after the gap,
    /// `last` the last second before it.
    enum class Reading { first, last };

    enum class Width { wide, abbreviated, narrow };

    struct Range {
        int first = 0;
        int count = 0;
    };

    /// 250,000 years to both sides: so far, milliseconds are exact.
    static constexpr double furthest = 8e12;

    Calendar();
    ~Calendar();
    Calendar(const Calendar& other);
    Calendar(Calendar&& other) noexcept;
    Calendar& operator=(const Calendar& other);
    Calendar& operator=(Calendar&& other) noexcept;

    /// Absent, as at the start: the user's.
    void setLocale(const std::optional<QLocale>& locale);
    void setTimeZone(const std::optional<QTimeZone>& timeZone);
    /// An ICU name of a calendar: "gregorian", "buddhist", "hebrew"; the usual one of the locale's region
    /// where it is absent or unknown.
    void setIdentifier(const std::optional<QByteArray>& identifier);
    /// 1 is Sunday, 7 is Saturday, brought into that range; the region's where absent.
    void setFirstWeekday(std::optional<int> weekday);
    /// How many days of a week lie in the year that counts it as its first: 4 by ISO 8601, from 1 to 7.
    void setMinimumDaysInFirstWeek(std::optional<int> days);

    [[nodiscard]] QLocale locale() const;
    [[nodiscard]] QByteArray identifier() const;
    /// By the name that ICU knows; "GMT+05:30" and such for a zone that has none.
    [[nodiscard]] QByteArray timeZoneName() const;
    [[nodiscard]] int firstWeekday() const;
    [[nodiscard]] int minimumDaysInFirstWeek() const;

    /// All fields.
    [[nodiscard]] std::optional<DateComponents> components(Date date) const;

    /// The moment of these components. What lies outside its range rolls over: month 13 is January of
    /// the next year, day 0 the last day of the month before, minute 60 the next hour. The day is told by
    /// `day`, else by `weekdayOrdinal` and `weekday`, else by `weekOfYear`, `yearForWeekOfYear` (or
    /// `year`) and `weekday`; fields of the other ways are ignored. Left out, a month or day is the first,
    /// an hour, minute or second is 0, the era is the current one. Absent with no year at all, and out of
    /// range.
    [[nodiscard]] std::optional<Date> date(
        const DateComponents& components, Reading reading = Reading::first) const;

    /// The same time of day so many units later, or earlier; the month's last day where it has fewer
    /// days; later by the gap where clocks skip that time. Hours and less are spans of time. Fractions of
    /// a second stay.
    [[nodiscard]] std::optional<Date> date(Unit unit, qint64 value, Date date) const;

    /// The whole units that can be added to `from` without passing `to`, each of the rest that the ones
    /// before it leave: largest first. All are negative or zero where `to` is the earlier. Only the
    /// asked fields are there; absent if a number is too large for an `int`.
    [[nodiscard]] std::optional<DateComponents> difference(
        std::initializer_list<Unit> units, Date from, Date to) const;

    /// The days of the month that `date` lies in.
    [[nodiscard]] std::optional<Range> daysOfMonth(Date date) const;
    /// Of any date.
    [[nodiscard]] Range weekdays() const;

    /// By the region; from and to the hour that it says.
    [[nodiscard]] bool isWeekend(Date date) const;
    [[nodiscard]] bool isSameDay(Date first, Date second) const;

    /// Names in the locale's language, standing for themselves, as at the head of a column: from the
    /// calendar's first month, from Sunday, from the first era.
    [[nodiscard]] QStringList monthNames(Width width = Width::wide) const;
    [[nodiscard]] QStringList weekdayNames(Width width = Width::wide) const;
    [[nodiscard]] QStringList eraNames(Width width = Width::wide) const;

    /// The locale's pattern for the fields that an ICU skeleton asks for: "h a" or "HH 'Uhr'" for "j".
    /// Kept. Empty if there is none.
    [[nodiscard]] QString dateFormat(const QString& skeleton) const;

private:
    class Engine;
    struct Settings;

    void set(Settings settings);

    std::shared_ptr<Engine> engine_; ///< never null, but after a move; shared by copies
};

} // namespace quor::platform
