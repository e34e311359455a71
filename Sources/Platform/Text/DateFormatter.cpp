// SPDX-License-Identifier: MIT
#include "Platform/Text/DateFormatter.h"

#include "Platform/Calendar/ICUTimeZone.h"
#include "Platform/Calendar/TimeZones.h"
#include "Platform/Calendar/UserDateLocale.h"
#include "Platform/Text/ICUText.h"

#include <unicode/datefmt.h>

#include <cmath>

namespace quor::platform {

namespace {

using Style = DateFormatter::Style;

icu::DateFormat::EStyle icuStyle(Style style)
{
    switch (style) {
    case Style::none:
        return icu::DateFormat::kNone;
    case Style::short_:
        return icu::DateFormat::kShort;
    case Style::medium:
        return icu::DateFormat::kMedium;
    case Style::long_:
        return icu::DateFormat::kLong;
    case Style::full:
        return icu::DateFormat::kFull;
    }
    return icu::DateFormat::kNone;
}

} // namespace

struct DateFormatter::Format {
    QLocale locale; ///< that `icuFormat` was made for, as is `zone`
    QTimeZone zone;
    std::unique_ptr<icu::DateFormat> icuFormat; ///< null if ICU has no data
};

DateFormatter::DateFormatter(Style dateStyle, Style timeStyle)
    : dateStyle_(dateStyle)
    , timeStyle_(timeStyle)
{
}

DateFormatter::~DateFormatter() = default;

QString DateFormatter::string(Date date) const
{
    const double seconds = secondsSince1970(date);
    const bool isUnstyled = dateStyle_ == Style::none && timeStyle_ == Style::none;
    if (isUnstyled || !(std::fabs(seconds) <= furthestSeconds))
        return {};
    const QLocale locale = locale_ ? *locale_ : userDateLocale();
    const QTimeZone zone = timeZone_ ? *timeZone_ : userTimeZone();
    if (!format_ || format_->locale != locale || format_->zone != zone) {
        format_ = std::make_unique<Format>(Format{locale, zone,
            std::unique_ptr<icu::DateFormat>(icu::DateFormat::createDateTimeInstance(
                icuStyle(dateStyle_), icuStyle(timeStyle_), icuLocale(locale)))});
        if (format_->icuFormat)
            format_->icuFormat->adoptTimeZone(icuTimeZone(zone).release());
    }
    if (!format_->icuFormat)
        return {};
    icu::UnicodeString text;
    return qtText(format_->icuFormat->format(seconds * 1000, text));
}

} // namespace quor::platform
