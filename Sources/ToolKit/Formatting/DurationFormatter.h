// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"
#include "Platform/Text/NumberFormatter.h"

#include <QString>
#include <QVariant>

#include <optional>

namespace quor::toolkit {

/// Writes durations in seconds as texts, and reads them back.
///
/// There are two forms: the clock form ("02:30", or "1d 02:30" with working days) and the decimal form ("1.5
/// h", "0.19 d"). Three settings choose between them; their owner sets them together. The decimal form uses
/// the user's decimal separator, for writing and reading; the clock form has ASCII digits. Use an object on
/// one thread at a time.
class DurationFormatter {
public:
    DurationFormatter();
    virtual ~DurationFormatter() = default;
    DurationFormatter(const DurationFormatter&) = delete;
    DurationFormatter& operator=(const DurationFormatter&) = delete;

    /// `showWorkingDays` splits off whole working days, `showDurationInPercent` selects the decimal form.
    /// Both are false by default. `workingDayLengthSeconds` is 28800 by default, which is 8 hours. If it is
    /// 0, negative or not finite, no text has working days and the decimal form is in hours.
    virtual void configure(bool showWorkingDays, bool showDurationInPercent, double workingDayLengthSeconds);

    /// Returns the form that the settings select: the decimal form with its unit and at most 2 fraction
    /// digits, or the clock form without seconds. `showMinutes` affects the clock form only.
    [[nodiscard]] virtual QString string(double duration, bool showMinutes) const;

    /// Parses a text of either form and returns the duration in seconds. The text is
    ///
    ///     [days <unit of working days>] hours[:minutes]
    ///
    /// After days, the hours can be missing. Without a colon, the unit of hours can follow the hours. Blanks
    /// are ignored, and everything after a second colon. Each number can have a fraction. A minus sign
    /// applies only to the number directly after it: "-02:30" is minus 2 hours plus 30 minutes, which is not
    /// what `clockString` means by it. Days are taken as 0 if the length of the working day is unusable.
    ///
    /// Returns `nullopt` if one of the numbers is missing ("", "1:") or is not a number ("1:30 h"), or if the
    /// sum is not finite. The settings do not select which form is accepted.
    [[nodiscard]] virtual std::optional<double> duration(
        const QString& text, int maximumFractionDigits) const;

    /// Returns the clock form. Hours, minutes and seconds have at least two digits. Days come before them;
    /// they have no padding, and are omitted if they are 0 or `inWorkingDays` is false. A negative duration
    /// begins with a minus sign. Values are truncated, never rounded: 59.9 seconds are "00:00". `showSeconds`
    /// has no effect without `showMinutes`. A duration that is not finite is written as 0. A number that does
    /// not fit into 64 bits is written as the largest number that does.
    [[nodiscard]] virtual QString clockString(
        bool inWorkingDays, bool showMinutes, bool showSeconds, double duration) const;

    /// Returns the decimal form: hours or working days as a number, rounded half to even. Returns an empty
    /// text, without a unit, if the number is not finite.
    [[nodiscard]] virtual QString decimalString(
        bool inWorkingDays, bool appendUnit, int maximumFractionDigits, double duration) const;

    /// Returns `string` with minutes for a value of an integer or floating-point type. Returns `nullopt` for
    /// all other types, also for a string of digits.
    [[nodiscard]] virtual std::optional<QString> stringForObjectValue(const QVariant& value) const;

    [[nodiscard]] bool showWorkingDays() const { return showWorkingDays_; }
    [[nodiscard]] bool showDurationInPercent() const { return showDurationInPercent_; }
    [[nodiscard]] double workingDayLengthSeconds() const { return workingDayLengthSeconds_; }

    /// The formatter of all decimal numbers. `decimalString` and `duration` change its maximum of fraction
    /// digits.
    [[nodiscard]] platform::NumberFormatter& percentageFormatter() const { return percentageFormatter_; }

private:
    /// The length of the working day in seconds, or 0 if it cannot be used.
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
