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

    /// `showWorkingDays` splits off whole working days, `showDurationInPercent` selects the decimal form. If
    /// `workingDayLengthSeconds` is 0, negative or not finite, no text has working days and the decimal form
    /// is in hours.
    virtual void configure(bool showWorkingDays, bool showDurationInPercent, double workingDayLengthSeconds);

    /// The form that the settings select: the decimal form with its unit and at most 2 fraction digits, or
    /// the clock form without seconds. `showMinutes` affects the clock form only.
    [[nodiscard]] virtual QString string(double duration, bool showMinutes) const;

    /// The seconds that a text of either form says: a number of days before the unit of working days, then
    /// "hours:minutes" or hours alone. Blanks of any kind, and what follows the minutes, are ignored. A minus
    /// sign applies to its own number only. Returns `nullopt` if one of the three is not a number, and if the
    /// sum is not finite.
    [[nodiscard]] virtual std::optional<double> duration(
        const QString& text, int maximumFractionDigits) const;

    /// The clock form. Each field has at least two digits and is truncated, never rounded: 59.9 seconds are
    /// "00:00". Seconds are shown only together with minutes. A duration that is not finite is written as 0,
    /// a field that exceeds 64 bits as their largest value.
    [[nodiscard]] virtual QString clockString(
        bool inWorkingDays, bool showMinutes, bool showSeconds, double duration) const;

    /// The decimal form: hours or working days as a number, rounded half to even. Returns an empty text,
    /// without a unit, if the number is not finite.
    [[nodiscard]] virtual QString decimalString(
        bool inWorkingDays, bool appendUnit, int maximumFractionDigits, double duration) const;

    /// `string` with minutes if `value` is a number. Returns `nullopt` for anything else, also for a text of
    /// digits.
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
