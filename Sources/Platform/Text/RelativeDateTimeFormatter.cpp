// SPDX-License-Identifier: MIT
#include "Platform/Text/RelativeDateTimeFormatter.h"

#include "Platform/Text/ICUText.h"

#include <QByteArray>

#include <unicode/ureldatefmt.h>

#include <array>
#include <cmath>
#include <utility>

namespace quor::platform {

namespace {

using DateTimeStyle = RelativeDateTimeFormatter::DateTimeStyle;
using UnitsStyle = RelativeDateTimeFormatter::UnitsStyle;
using FormattingContext = RelativeDateTimeFormatter::FormattingContext;

struct CloseFormat {
    void operator()(URelativeDateTimeFormatter* format) const { ureldatefmt_close(format); }
};

struct Unit {
    double seconds;
    URelativeDateTimeUnit unit;
};

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;
constexpr std::array units{
    Unit{365 * day, UDAT_REL_UNIT_YEAR},
    Unit{30 * day, UDAT_REL_UNIT_MONTH},
    Unit{7 * day, UDAT_REL_UNIT_WEEK},
    Unit{day, UDAT_REL_UNIT_DAY},
    Unit{hour, UDAT_REL_UNIT_HOUR},
    Unit{minute, UDAT_REL_UNIT_MINUTE},
    Unit{1, UDAT_REL_UNIT_SECOND},
};

const Unit& largestThatFits(double interval)
{
    for (const Unit& unit : units) {
        if (std::fabs(interval) >= unit.seconds)
            return unit;
    }
    return units.back();
}

UDateRelativeDateTimeFormatterStyle icuStyle(UnitsStyle style)
{
    switch (style) {
    case UnitsStyle::full:
        return UDAT_STYLE_LONG;
    case UnitsStyle::short_:
        return UDAT_STYLE_SHORT;
    case UnitsStyle::abbreviated:
        return UDAT_STYLE_NARROW;
    }
    return UDAT_STYLE_LONG;
}

UDisplayContext icuContext(FormattingContext context)
{
    switch (context) {
    case FormattingContext::unknown:
        return UDISPCTX_CAPITALIZATION_NONE;
    case FormattingContext::standalone:
        return UDISPCTX_CAPITALIZATION_FOR_STANDALONE;
    case FormattingContext::listItem:
        return UDISPCTX_CAPITALIZATION_FOR_UI_LIST_OR_MENU;
    case FormattingContext::beginningOfSentence:
        return UDISPCTX_CAPITALIZATION_FOR_BEGINNING_OF_SENTENCE;
    case FormattingContext::middleOfSentence:
        return UDISPCTX_CAPITALIZATION_FOR_MIDDLE_OF_SENTENCE;
    }
    return UDISPCTX_CAPITALIZATION_NONE;
}

} // namespace

struct RelativeDateTimeFormatter::Format {
    QByteArray language; ///< that `icuFormat` was made for
    std::unique_ptr<URelativeDateTimeFormatter, CloseFormat> icuFormat; ///< null if ICU has no data
};

RelativeDateTimeFormatter::RelativeDateTimeFormatter() = default;

RelativeDateTimeFormatter::~RelativeDateTimeFormatter() = default;

void RelativeDateTimeFormatter::setDateTimeStyle(DateTimeStyle style)
{
    dateTimeStyle_ = style;
}

void RelativeDateTimeFormatter::setUnitsStyle(UnitsStyle style)
{
    unitsStyle_ = style;
    format_.reset();
}

void RelativeDateTimeFormatter::setFormattingContext(FormattingContext context)
{
    context_ = context;
    format_.reset();
}

void RelativeDateTimeFormatter::setLocale(const std::optional<QLocale>& locale)
{
    locale_ = locale;
}

const RelativeDateTimeFormatter::Format& RelativeDateTimeFormatter::format() const
{
    const QByteArray language = locale_.value_or(QLocale()).bcp47Name().toLatin1();
    if (!format_ || format_->language != language) {
        UErrorCode status = U_ZERO_ERROR;
        format_ = std::make_unique<Format>(Format{language,
            decltype(Format::icuFormat)(ureldatefmt_open(
                language.constData(), nullptr, icuStyle(unitsStyle_), icuContext(context_), &status))});
    }
    return *format_;
}

QString RelativeDateTimeFormatter::localizedString(double interval) const
{
    if (!std::isfinite(interval))
        return {};
    const Unit& unit = largestThatFits(interval);
    const double truncated = std::trunc(interval / unit.seconds);
    const double count = truncated == 0 ? 0 : truncated; // a negative zero would be in the past
    const auto& icuFormat = format().icuFormat;
    const auto write
        = dateTimeStyle_ == DateTimeStyle::numeric ? ureldatefmt_formatNumeric : ureldatefmt_format;
    return textFromICU([&](UChar* buffer, int32_t capacity, UErrorCode* status) {
        return icuFormat ? write(icuFormat.get(), count, unit.unit, buffer, capacity, status) : 0;
    });
}

} // namespace quor::platform
