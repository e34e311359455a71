// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

#include <memory>
#include <optional>

namespace quor::platform {

/// Writes a span of time from now as the user's language says it: "5 min. ago", "in 2 hr.".
///
/// Uses the largest unit of which the span holds at least one, and drops the rest: 90 minutes are "1 hr.".
/// The units are seconds, minutes, hours, days, weeks, months of 30 days and years of 365 days. Spans of less
/// than a second lie in the future: "in 0 sec.". The first call loads the rules of the language; they are
/// kept. Use an object on one thread at a time.
class RelativeDateTimeFormatter final {
public:
    enum class DateTimeStyle {
        numeric, ///< "1 day ago"
        named, ///< "yesterday", if the language has a word
    };
    enum class UnitsStyle {
        full, ///< "5 minutes ago"
        short_, ///< "5 min. ago"
        abbreviated, ///< "5m ago", if the language has such a form
    };
    /// Where the text will stand; decides in some languages whether it begins with a capital.
    enum class FormattingContext { unknown, standalone, listItem, beginningOfSentence, middleOfSentence };

    /// Numeric, with full units, in an unknown context.
    RelativeDateTimeFormatter();
    ~RelativeDateTimeFormatter();
    RelativeDateTimeFormatter(const RelativeDateTimeFormatter&) = delete;
    RelativeDateTimeFormatter& operator=(const RelativeDateTimeFormatter&) = delete;

    void setDateTimeStyle(DateTimeStyle style);
    void setUnitsStyle(UnitsStyle style);
    void setFormattingContext(FormattingContext context);
    /// `nullopt`, the initial value, means the default locale as it is at each call.
    void setLocale(const std::optional<QLocale>& locale);

    /// The text for `interval` seconds from now; a negative interval lies in the past. Returns an empty text
    /// for infinity and NaN.
    [[nodiscard]] QString localizedString(double interval) const;

private:
    struct Format;

    /// Loads the rules, unless the rules of this language are loaded already.
    [[nodiscard]] const Format& format() const;

    DateTimeStyle dateTimeStyle_ = DateTimeStyle::numeric;
    UnitsStyle unitsStyle_ = UnitsStyle::full;
    FormattingContext context_ = FormattingContext::unknown;
    std::optional<QLocale> locale_;
    mutable std::unique_ptr<Format> format_; ///< null before the first call and after a change of the style
};

} // namespace quor::platform
