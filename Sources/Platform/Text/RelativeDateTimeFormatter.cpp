// SPDX-License-Identifier: MIT
#include "Platform/Text/RelativeDateTimeFormatter.h"

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

class RelativeDateTimeFormatter::Format {
public:
    Format() = default;
    Format(const Format& other)
        : dateTimeStyle(other.dateTimeStyle)
        , unitsStyle(other.unitsStyle)
        , context(other.context)
        , locale(other.locale)
    {
    }

    void forget() { format_.reset(); }

    QString string(double count, URelativeDateTimeUnit unit)
    {
        const URelativeDateTimeFormatter* const format = get();
        const auto formatted
            = dateTimeStyle == DateTimeStyle::numeric ? ureldatefmt_formatNumeric : ureldatefmt_format;
        QString text(64, Qt::Uninitialized);
        UErrorCode status = U_ZERO_ERROR;
        const auto write = [&] {
            status = U_ZERO_ERROR;
            return format ? formatted(format, count, unit, reinterpret_cast<UChar*>(text.data()),
                       int32_t(text.size()), &status)
                          : 0;
        };
        text.resize(write());
        if (status == U_BUFFER_OVERFLOW_ERROR)
            write();
        return U_SUCCESS(status) ? text : QString();
    }

    DateTimeStyle dateTimeStyle = DateTimeStyle::numeric;
    UnitsStyle unitsStyle = UnitsStyle::full;
    FormattingContext context = FormattingContext::unknown;
    std::optional<QLocale> locale;

private:
    /// Null if ICU has no data.
    const URelativeDateTimeFormatter* get()
    {
        QByteArray language = locale.value_or(QLocale()).bcp47Name().toLatin1();
        if (format_ && language == language_)
            return format_.get();
        UErrorCode status = U_ZERO_ERROR;
        format_.reset(ureldatefmt_open(
            language.constData(), nullptr, icuStyle(unitsStyle), icuContext(context), &status));
        language_ = std::move(language);
        return format_.get();
    }

    std::unique_ptr<URelativeDateTimeFormatter, CloseFormat> format_;
    QByteArray language_; ///< what `format_` is for
};

RelativeDateTimeFormatter::RelativeDateTimeFormatter()
    : format_(std::make_unique<Format>())
{
}

RelativeDateTimeFormatter::~RelativeDateTimeFormatter() = default;

RelativeDateTimeFormatter::RelativeDateTimeFormatter(const RelativeDateTimeFormatter& other)
    : format_(std::make_unique<Format>(*other.format_))
{
}

RelativeDateTimeFormatter& RelativeDateTimeFormatter::operator=(const RelativeDateTimeFormatter& other)
{
    if (this != &other)
        format_ = std::make_unique<Format>(*other.format_);
    return *this;
}

void RelativeDateTimeFormatter::setDateTimeStyle(DateTimeStyle style)
{
    format_->dateTimeStyle = style;
}

void RelativeDateTimeFormatter::setUnitsStyle(UnitsStyle style)
{
    format_->unitsStyle = style;
    format_->forget();
}

void RelativeDateTimeFormatter::setFormattingContext(FormattingContext context)
{
    format_->context = context;
    format_->forget();
}

void RelativeDateTimeFormatter::setLocale(const std::optional<QLocale>& locale)
{
    format_->locale = locale;
}

QString RelativeDateTimeFormatter::localizedString(double interval) const
{
    if (!std::isfinite(interval))
        return {};
    const Unit& unit = largestThatFits(interval);
    const double count = std::trunc(interval / unit.seconds);
    // A negative zero would be in the past.
    return format_->string(count == 0 ? 0 : count, unit.unit);
}

} // namespace quor::platform
