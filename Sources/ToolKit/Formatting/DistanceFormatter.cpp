// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DistanceFormatter.h"

#include "ToolKit/Formatting/DistanceReader.h"
#include "ToolKit/Formatting/ICULocale.h"
#include "ToolKit/Formatting/LengthFormatter.h"
#include "ToolKit/Formatting/LocaleFacts.h"

#include <unicode/dcfmtsym.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr double metersPerKilometer = 1000;
constexpr double milesPerKilometer = 0.621371192;

/// The locale whose rules a typed number follows.
QString numberLocale(const QString& locale, bool isMetric)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(icuLocale(locale), status);
    const auto& mark = symbols.getConstSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol);
    // Users of miles write numbers as in the United States, unless they chose miles for a language that has
    // another decimal mark: then their own texts must be readable.
    return !isMetric && mark == icu::UnicodeString(u'.') ? u"en_US"_s : locale;
}

} // namespace

/// The rules of one locale. The reader, which is expensive to create, is null until something is read.
struct DistanceFormatter::Rules {
    explicit Rules(QString identifier)
        : locale(std::move(identifier))
        , isMetric(usesMetricSystem(locale))
        , newFormatter(locale, isMetric ? LengthUnit::kilometer : LengthUnit::mile, LengthWidth::medium)
    {
    }

    QString locale;
    bool isMetric;
    LengthFormatter newFormatter;
    std::unique_ptr<DistanceReader> oldFormatter;
};

DistanceFormatter::DistanceFormatter(QString localeIdentifier)
    : localeIdentifier_(std::move(localeIdentifier))
{
}

DistanceFormatter::~DistanceFormatter() = default;

DistanceFormatter::Rules& DistanceFormatter::rules() const
{
    const QString locale = localeIdentifier_.isEmpty() ? localeIdentifier() : localeIdentifier_;
    if (!rules_ || rules_->locale != locale)
        rules_ = std::make_unique<Rules>(locale);
    return *rules_;
}

QString DistanceFormatter::string(double fromMeters) const
{
    const Rules& now = rules();
    const double kilometers = fromMeters / metersPerKilometer;
    return now.newFormatter.string(now.isMetric ? kilometers : kilometers * milesPerKilometer);
}

std::optional<QString> DistanceFormatter::stringForObjectValue(const QVariant& value) const
{
    const int type = value.typeId();
    const bool isNumber = value.canConvert<double>() && type != QMetaType::QString
        && type != QMetaType::QByteArray && type != QMetaType::Bool;
    return string(isNumber ? value.toDouble() : 0);
}

double DistanceFormatter::distance(const QString& text) const
{
    Rules& now = rules();
    if (!now.oldFormatter)
        now.oldFormatter
            = std::make_unique<DistanceReader>(now.locale, numberLocale(now.locale, now.isMetric));
    const double meters = now.oldFormatter->distance(text);
    if (meters >= 0)
        return meters;
    return now.oldFormatter->distance(text + (now.isMetric ? u"km"_s : u"mi"_s));
}

} // namespace quor::toolkit
