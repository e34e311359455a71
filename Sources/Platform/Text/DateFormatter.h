// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Date.h"

#include <QLocale>
#include <QString>
#include <QTimeZone>

#include <memory>
#include <optional>

namespace quor::platform {

/// Writes moments as the user's language and region do, in their calendar, with 12 or 24 hours.
///
/// Unless a locale or a zone is set, follows the user's locale for dates and the user's time zone, as they
/// are at each call. The first call loads the rules of the language; they are kept. Use an object on one
/// thread at a time.
class DateFormatter final {
public:
    /// How long a date or a time is written, from "14.11.23" or "22:13" (`short_`) to "Dienstag, 14. November
    /// 2023" or "22:13:20 Koordinierte Weltzeit" (`full`); `none` leaves it out.
    enum class Style { none, short_, medium, long_, full };

    DateFormatter(Style dateStyle, Style timeStyle);
    ~DateFormatter();
    DateFormatter(const DateFormatter&) = delete;
    DateFormatter& operator=(const DateFormatter&) = delete;

    /// `nullopt`, the initial value of both, means the user's.
    void setLocale(const std::optional<QLocale>& locale) { locale_ = locale; }
    void setTimeZone(const std::optional<QTimeZone>& timeZone) { timeZone_ = timeZone; }

    /// Returns an empty text if both styles are `none`, for NaN, and for a moment beyond `furthestSeconds`.
    /// "AM" and "PM" follow a narrow no-break space (U+202F).
    [[nodiscard]] QString string(Date date) const;

private:
    struct Format;

    const Style dateStyle_;
    const Style timeStyle_;
    std::optional<QLocale> locale_;
    std::optional<QTimeZone> timeZone_;
    mutable std::unique_ptr<Format> format_; ///< null before the first call
};

} // namespace quor::platform
