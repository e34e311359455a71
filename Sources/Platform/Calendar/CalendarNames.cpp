// SPDX-License-Identifier: MIT
#include "Platform/Calendar/Calendar.h"

#include "Platform/Calendar/CalendarEngine.h"

#include <unicode/dtfmtsym.h>

namespace quor::platform {

namespace {

icu::DateFormatSymbols::DtWidthType icuWidth(Calendar::Width width)
{
    switch (width) {
    case Calendar::Width::wide:
        return icu::DateFormatSymbols::WIDE;
    case Calendar::Width::abbreviated:
        return icu::DateFormatSymbols::ABBREVIATED;
    case Calendar::Width::narrow:
        return icu::DateFormatSymbols::NARROW;
    }
    return icu::DateFormatSymbols::WIDE;
}

QStringList list(const icu::UnicodeString* names, int count, int first = 0)
{
    QStringList result;
    for (int index = first; names && index < count; ++index)
        result += QString(reinterpret_cast<const QChar*>(names[index].getBuffer()), names[index].length());
    return result;
}

} // namespace

QStringList Calendar::monthNames(Width width) const
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(engine_->icuLocale(), status);
    int32_t count = 0;
    const auto* names = symbols.getMonths(count, icu::DateFormatSymbols::STANDALONE, icuWidth(width));
    return list(names, count);
}

QStringList Calendar::weekdayNames(Width width) const
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(engine_->icuLocale(), status);
    int32_t count = 0;
    const auto* names = symbols.getWeekdays(count, icu::DateFormatSymbols::STANDALONE, icuWidth(width));
    return list(names, count, UCAL_SUNDAY); // ICU has an empty name before it
}

QStringList Calendar::eraNames(Width width) const
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(engine_->icuLocale(), status);
    int32_t count = 0;
    const auto* names = width == Width::wide ? symbols.getEraNames(count)
        : width == Width::abbreviated        ? symbols.getEras(count)
                                             : symbols.getNarrowEras(count);
    return list(names, count);
}

QString Calendar::dateFormat(const QString& skeleton) const
{
    return engine_->dateFormat(skeleton);
}

} // namespace quor::platform
