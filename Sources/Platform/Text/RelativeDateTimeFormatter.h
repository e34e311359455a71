// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

#include <memory>
#include <optional>

namespace quor::platform {

/// A span of time as the user's language says it, seen from now: "5 min. ago", "in 2 hr.".
///
/// Told in the largest unit that the span fills once, the rest cut: 90 minutes are "1 hr.". Units are
/// seconds, minutes, hours, days, weeks, months of 30 days, years of 365. Less than a second, and
/// nothing, lie ahead: "in 0 sec.". The language's rules are loaded by the first call that needs
/// them, and kept. A value: a copy formats alike and shares nothing. One object on one thread at a
/// time.
class RelativeDateTimeFormatter final {
public:
    enum class DateTimeStyle {
        numeric, ///< "1 day ago"
        named, ///< "yesterday", where the language has a word
    };
    enum class UnitsStyle {
        full, ///< "5 minutes ago"
        short_, ///< "5 min. ago"
        abbreviated, ///< "5m ago", where the language has it
    };
    enum class FormattingContext { unknown, standalone, listItem, beginningOfSentence, middleOfSentence };

    /// Numeric, full units, in an unknown context.
    RelativeDateTimeFormatter();
    ~RelativeDateTimeFormatter();
    RelativeDateTimeFormatter(const RelativeDateTimeFormatter& other);
    RelativeDateTimeFormatter& operator=(const RelativeDateTimeFormatter& other);

    void setDateTimeStyle(DateTimeStyle style);
    void setUnitsStyle(UnitsStyle style);
    void setFormattingContext(FormattingContext context);
    /// Absent, as at the start: the default locale, as it stands at each call.
    void setLocale(const std::optional<QLocale>& locale);

    /// `interval` in seconds from now, negative for the past. Empty for what is not finite.
    [[nodiscard]] QString localizedString(double interval) const;

private:
    class Format;

    std::unique_ptr<Format> format_; ///< never null
};

} // namespace quor::platform
