// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/TypedNumber.h"

#include "Platform/Text/ICUText.h"

#include <unicode/dcfmtsym.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

/// Whether the text has a point or a comma that the locale uses for nothing. ICU would take it for a
/// separator of thousands: "1.234" in French, where it can just as well be the decimal mark of another
/// language.
bool hasForeignMark(const QString& text, QChar decimal, QChar grouping)
{
    constexpr QStringView commas = u",\u066B\u066C"; // with those of Arabic, for which people type commas
    const auto isUsed
        = [&](QStringView marks) { return marks.contains(decimal) || marks.contains(grouping); };
    return (text.contains(u'.') && !isUsed(u".")) || (text.contains(u',') && !isUsed(commas));
}

} // namespace

QString folded(const QString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* normalizer = icu::Normalizer2::getNFKCCasefoldInstance(status);
    if (U_FAILURE(status))
        return {};
    const auto normal = normalizer->normalize(platform::icuText(text), status);
    if (U_FAILURE(status))
        return {};
    QString result;
    for (int32_t at = 0; at < normal.length(); at = normal.moveIndex32(at, 1)) {
        const UChar32 character = normal.char32At(at);
        const int32_t digit = u_charDigitValue(character);
        result += digit < 0 ? QChar::fromUcs4(static_cast<char32_t>(character))
                            : QChar::fromUcs4(U'0' + static_cast<char32_t>(digit));
    }
    // To the characters on keyboards: feet, and abbreviations in Hebrew.
    return result.replace(u'\u2032', u'\'').replace(u'\u05F4', u'"').simplified();
}

std::unique_ptr<icu::DecimalFormat> strictFormat(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createInstance(locale, status));
    std::unique_ptr<icu::DecimalFormat> decimal(dynamic_cast<icu::DecimalFormat*>(format.get()));
    if (!decimal)
        return nullptr;
    (void)format.release();
    decimal->setLenient(false);
    return decimal;
}

std::optional<double> strictNumber(QString text, const icu::DecimalFormat& format)
{
    const auto mark = [&format](icu::DecimalFormatSymbols::ENumberFormatSymbol symbol) {
        return QChar(format.getDecimalFormatSymbols()->getConstSymbol(symbol).charAt(0));
    };
    const QChar separator = mark(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol);
    if (hasForeignMark(text, mark(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol), separator))
        return std::nullopt;
    if (separator.isSpace())
        text.replace(u' ', separator);
    const icu::UnicodeString units = platform::icuText(text);
    icu::Formattable value;
    icu::ParsePosition at(0);
    format.parse(units, value, at);
    UErrorCode status = U_ZERO_ERROR;
    if (at.getIndex() != units.length())
        return std::nullopt;
    const double number = value.getDouble(status);
    const bool isNumber = U_SUCCESS(status) && std::isfinite(number) && !std::signbit(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace quor::toolkit
