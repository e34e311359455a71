// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Date.h"
#include "Platform/Calendar/DateComponents.h"

#include <QByteArray>
#include <QLocale>
#include <QString>
#include <QTimeZone>

#include <initializer_list>
#include <memory>
#include <optional>

namespace quor::platform {

/// A calendar system, a time zone and the conventions of a region: turns moments into days, weeks, months and
/// years, and computes with them.
///
/// A new calendar follows the user: the default locale (until the program sets one, the locale that the
/// environment names for dates) and the user's time zone, both as they are at each call. What is set stays. A
/// value, cheap to copy; changing a copy does not change the original. Const operations may run on any
/// threads at once, without waiting for each other.
///
/// A calendar covers the moments up to `furthestSeconds` from 1970. For others, and for NaN, every operation
/// returns `nullopt` or false.
class Calendar final {
public:
    enum class Unit { year, month, weekOfYear, day, hour, minute, second };

    /// Which moment to take where clocks are changed. If clocks are put back, one time of day occurs twice:
    /// `first` is the first occurrence, `last` the second. If clocks are put forward, times of day are
    /// skipped: `first` is the moment after the gap, `last` the last second before it.
    enum class Reading { first, last };

    struct Range {
        int first = 0;
        int count = 0;
    };

    Calendar();
    ~Calendar();
    Calendar(const Calendar& other);
    Calendar(Calendar&& other) noexcept;
    Calendar& operator=(const Calendar& other);
    Calendar& operator=(Calendar&& other) noexcept;

    /// `nullopt`, the initial value of each setting, means the user's.
    void setLocale(const std::optional<QLocale>& locale);
    void setTimeZone(const std::optional<QTimeZone>& timeZone);
    /// The calendar system by its name in ICU: "gregorian", "buddhist", "hebrew". `nullopt`, and a name that
    /// ICU does not know, mean the usual one of the locale's region.
    void setIdentifier(const std::optional<QByteArray>& identifier);
    /// From 1 for Sunday to 7 for Saturday; values outside are clamped. `nullopt` means the region's.
    void setFirstWeekday(std::optional<int> weekday);
    /// How many days of a week must lie in a year for the week to be the first of that year: 4 by ISO 8601.
    /// Values outside 1 to 7 are clamped. `nullopt` means the region's.
    void setMinimumDaysInFirstWeek(std::optional<int> days);

    /// The zone's name, or its rule ("CET-1CEST,M3.5.0,M10.5.0/3") if it has no name.
    [[nodiscard]] QByteArray timeZoneName() const;
    [[nodiscard]] int firstWeekday() const;
    [[nodiscard]] int minimumDaysInFirstWeek() const;

    /// All fields of a moment.
    [[nodiscard]] std::optional<DateComponents> components(Date date) const;

    /// The moment with these components. A value outside the range of its field rolls over: month 13 is
    /// January of the next year, day 0 the last day of the month before, minute 60 the next hour. `day`
    /// decides the day if it is set, else `weekdayOrdinal` and `weekday`, else `weekOfYear`,
    /// `yearForWeekOfYear` (or `year`) and `weekday`; the other fields of these are ignored. A missing month
    /// or day is the first, a missing hour, minute or second is 0, a missing era the current one. Returns
    /// `nullopt` without any year, and if the moment is out of range.
    [[nodiscard]] std::optional<Date> date(
        const DateComponents& components, Reading reading = Reading::first) const;

    /// Adds `value` units, or subtracts them if it is negative. Years to days keep the time of day; a day
    /// that the reached month does not have becomes the month's last, and a skipped time of day moves later
    /// by the length of the gap. Hours to seconds are spans of time. Fractions of a second stay.
    [[nodiscard]] std::optional<Date> date(Unit unit, qint64 value, Date date) const;

    /// How many whole units can be added to `from` without passing `to`. List the units from the largest to
    /// the smallest: each counts in what the ones before it leave. All counts are 0 or negative if `to` is
    /// the earlier. The result has only the fields of `units`. Returns `nullopt` if a count does not fit an
    /// `int`.
    [[nodiscard]] std::optional<DateComponents> difference(
        std::initializer_list<Unit> units, Date from, Date to) const;

    /// The days of the month that contains `date`.
    [[nodiscard]] std::optional<Range> daysOfMonth(Date date) const;
    /// The numbers that weekdays have in this calendar system.
    [[nodiscard]] Range weekdays() const;

    /// Whether the region's weekend, which may begin and end within a day, contains `date`.
    [[nodiscard]] bool isWeekend(Date date) const;
    [[nodiscard]] bool isSameDay(Date first, Date second) const;

    /// The locale's pattern for the fields of an ICU skeleton: "h a" or "HH 'Uhr'" for "j". Cached. Returns
    /// an empty text if ICU has no pattern.
    [[nodiscard]] QString dateFormat(const QString& skeleton) const;

private:
    class Engine;
    struct Settings;

    void set(Settings settings);

    std::shared_ptr<Engine> engine_; ///< null only after a move; shared by copies
};

} // namespace quor::platform
