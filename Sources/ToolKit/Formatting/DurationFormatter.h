// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"
#include "Platform/Text/NumberFormatter.h"

#include <QString>
#include <QVariant>

#include <optional>

namespace quor::toolkit {

/// The one place where a duration in seconds becomes text, and text a duration.
///
/// Two forms: the clock form ("1d 02:30", with the count of working days left out below one or when
/// not asked for) and the decimal form ("1.5 h", "0.19 d"). Three settings, set together by the
/// owner, choose between them. Decimal numbers are the user's, in and out; the clock form has plain
/// digits and costs no formatter. Not thread-safe: one formatter a thread.
class DurationFormatter {
public:
    DurationFormatter();
    virtual ~DurationFormatter() = default;
    DurationFormatter(const DurationFormatter&) = delete;
    DurationFormatter& operator=(const DurationFormatter&) = delete;

    /// A length of 0 or less, or one that is no finite number, counts as "not set": no text has
    /// working days then, and the decimal form is in hours.
    virtual void configure(bool showWorkingDays, bool showDurationInPercent, double workingDayLengthSeconds);

    /// Text by the settings: the decimal form with its unit and at most 2 fraction digits where
    /// `showDurationInPercent` is set, else the clock form without seconds.
    [[nodiscard]] virtual QString string(double duration, bool showMinutes) const;

    /// Seconds told by a text in either form, blanks of any kind ignored: days before the working
    /// day's text, then "hours:minutes" or hours alone. Anything after the minutes' field is
    /// ignored, and a minus sign holds for its own number only. Absent where one of the three is not
    /// a number, or where the sum is not finite.
    [[nodiscard]] virtual std::optional<double> duration(
        const QString& text, int maximumFractionDigits) const;

    /// Fields of at least two digits, cut, never rounded: 59.9 seconds is "00:00". Seconds show only
    /// together with minutes. A duration that is not finite counts as 0, and a field too large for
    /// 64 bits stays at the largest.
    [[nodiscard]] virtual QString clockString(
        bool inWorkingDays, bool showMinutes, bool showSeconds, double duration) const;

    /// Hours or working days as a number, rounded half to even; the empty text, without a unit, where
    /// that is not finite.
    [[nodiscard]] virtual QString decimalString(
        bool inWorkingDays, bool appendUnit, int maximumFractionDigits, double duration) const;

    /// `string` with minutes for a number, absent for anything else: a text of digits is no number.
    [[nodiscard]] virtual std::optional<QString> stringForObjectValue(const QVariant& value) const;

    [[nodiscard]] bool showWorkingDays() const { return showWorkingDays_; }
    [[nodiscard]] bool showDurationInPercent() const { return showDurationInPercent_; }
    [[nodiscard]] double workingDayLengthSeconds() const { return workingDayLengthSeconds_; }

    /// Writes and reads all decimal numbers; it keeps the fraction digits last asked for.
    [[nodiscard]] platform::NumberFormatter& percentageFormatter() const { return percentageFormatter_; }

private:
    /// 0 where none is set.
    [[nodiscard]] double usableWorkingDay() const;
    [[nodiscard]] QString workingDayText() const;
    [[nodiscard]] QString hourText() const;

    platform::Bundle bundle_;
    mutable platform::NumberFormatter percentageFormatter_;
    bool showWorkingDays_ = false;
    bool showDurationInPercent_ = false;
    double workingDayLengthSeconds_ = 28800;
};

} // namespace quor::toolkit
