// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/LengthFormatter.h"

#include "Platform/Text/ICUText.h"
#include "ToolKit/Formatting/ICULocale.h"

#include <unicode/measunit.h>
#include <unicode/numberformatter.h>

#include <cmath>

namespace quor::toolkit {

namespace {

icu::MeasureUnit icuUnit(LengthUnit unit)
{
    switch (unit) {
    case LengthUnit::kilometer:
        return icu::MeasureUnit::getKilometer();
    case LengthUnit::meter:
        return icu::MeasureUnit::getMeter();
    case LengthUnit::mile:
        return icu::MeasureUnit::getMile();
    case LengthUnit::yard:
        return icu::MeasureUnit::getYard();
    case LengthUnit::foot:
        return icu::MeasureUnit::getFoot();
    }
    return {};
}

UNumberUnitWidth icuWidth(LengthWidth width)
{
    switch (width) {
    case LengthWidth::narrow:
        return UNUM_UNIT_WIDTH_NARROW;
    case LengthWidth::medium:
        return UNUM_UNIT_WIDTH_SHORT;
    case LengthWidth::wide:
        return UNUM_UNIT_WIDTH_FULL_NAME;
    }
    return UNUM_UNIT_WIDTH_SHORT;
}

} // namespace

double metersIn(LengthUnit unit)
{
    switch (unit) {
    case LengthUnit::kilometer:
        return 1000;
    case LengthUnit::meter:
        return 1;
    case LengthUnit::mile:
        return 1609.344;
    case LengthUnit::yard:
        return 0.9144;
    case LengthUnit::foot:
        return 0.3048;
    }
    return 0;
}

class LengthFormatter::Format {
public:
    icu::number::LocalizedNumberFormatter number;
};

LengthFormatter::LengthFormatter(const QString& localeIdentifier, LengthUnit unit, LengthWidth width)
    : format_(
        std::make_unique<Format>(Format{icu::number::NumberFormatter::withLocale(icuLocale(localeIdentifier))
                                            .unit(icuUnit(unit))
                                            .unitWidth(icuWidth(width))
                                            .grouping(UNUM_GROUPING_OFF)
                                            .precision(icu::number::Precision::maxFraction(2))
                                            .roundingMode(UNUM_ROUND_HALFEVEN)
                                            .sign(UNUM_SIGN_NEGATIVE)}))
{
}

LengthFormatter::~LengthFormatter() = default;

QString LengthFormatter::string(double value) const
{
    if (!std::isfinite(value))
        return {};
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString text = format_->number.formatDouble(value, status).toString(status);
    return U_SUCCESS(status) ? platform::qtText(text) : QString();
}

} // namespace quor::toolkit
