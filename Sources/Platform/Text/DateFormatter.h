// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QLocale>
#include <QString>
#include <QTimeZone>

#include <memory>
#include <optional>

namespace quor::platform {

/// Moments as the user's language and region write them, in their calendar, with 12 or 24 hours.
///
/// Follows the default locale and the machine's time zone as they stand at each call, unless others
/// are set; where the default is the system's, the one that it names for times (LC_TIME). The
/// language's rules are loaded by the first call that needs them, and kept. A value: a copy formats
/// alike and shares nothing. One object on one thread at a time.
class DateFormatter final {
public:
    enum class Style { none, short_, medium, long_, full };

    /// Neither date nor time.
    explicit DateFormatter(Style dateStyle = Style::none, Style timeStyle = Style::none);
    ~DateFormatter();
    DateFormatter(const DateFormatter& other);
    DateFormatter& operator=(const DateFormatter& other);

    [[nodiscard]] Style dateStyle() const;
    [[nodiscard]] Style timeStyle() const;
    void setDateStyle(Style style);
    void setTimeStyle(Style style);

    /// Absent, as at the start: the user's.
    void setLocale(const std::optional<QLocale>& locale);
    void setTimeZone(const std::optional<QTimeZone>& timeZone);

    /// Empty without a style, and for what is not finite or too far away for a calendar. A time may
    /// hold a narrow blank that does not break (U+202F).
    [[nodiscard]] QString string(Date date) const;

private:
    class Format;

    std::unique_ptr<Format> format_; ///< never null
};

} // namespace quor::platform
