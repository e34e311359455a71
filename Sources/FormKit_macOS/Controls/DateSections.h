// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/ZonedCalendar.h"

#include <QLocale>
#include <QString>

#include <optional>
#include <vector>

namespace quor::formkit {

/// How the user's region writes a date or a time of day in numbers: the sections, their order and what
/// stands between them. Years have four digits, in the Gregorian calendar. A value.
class DateSections final {
public:
    enum class Kind { year, month, day, hour, hourOfTwelve, minute, dayPeriod };
    struct Section {
        Kind kind = Kind::year;
        int leastDigits = 1;
        QString before; ///< between the section before it and this one
    };

    /// Year, month and day; or the hour, the minute and, where hours count to twelve, the part of the day.
    [[nodiscard]] static DateSections ofDate();
    [[nodiscard]] static DateSections ofTime();

    [[nodiscard]] const std::vector<Section>& sections() const { return sections_; }
    [[nodiscard]] const QLocale& locale() const { return locale_; }
    /// The same for `QDateTimeEdit`.
    [[nodiscard]] QString qtFormat() const;

    [[nodiscard]] QString text(const DateFields& fields) const;
    /// The text of one section.
    [[nodiscard]] QString text(const DateFields& fields, Kind kind, int leastDigits) const;
    /// `digits`, from 0 to 9, as the user's language writes them.
    [[nodiscard]] QString localDigits(const QString& digits) const;
    /// AM if `isAfternoon` is false, else PM, as the user's language writes them.
    [[nodiscard]] QString dayPeriod(bool isAfternoon) const;

    /// `fields` with a date or a time that the user has written or pasted, in the order of the user's region.
    /// Also reads dates that begin with a year of four digits, and completes years of two. Signs between the
    /// numbers are ignored. A part that the text does not have stays. Returns `nullopt` for everything else.
    [[nodiscard]] std::optional<DateFields> read(const QString& text, const DateFields& fields) const;

private:
    explicit DateSections(const QString& skeleton);

    std::vector<Section> sections_;
    QString after_; ///< follows the last section
    QLocale locale_;
};

/// The year that a user means by typing `digits`, from 0 to 9, which are not empty: one or two stand for the
/// year nearest to `year` that ends with them.
[[nodiscard]] int yearOfDigits(const QString& digits, int year);

/// The number of days of that month.
[[nodiscard]] int daysOfMonth(int year, int month);

} // namespace quor::formkit
