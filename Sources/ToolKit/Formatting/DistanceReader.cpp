// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DistanceReader.h"

#include "Platform/Text/ICUText.h"
#include "ToolKit/Formatting/ICULocale.h"

#include <unicode/normalizer2.h>
#include <unicode/numfmt.h>
#include <unicode/plurrule.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr double unreadable = -1;
constexpr qsizetype longestText = 1000; // no finite number needs more

// Makes texts equal that differ in case, width, script of digits, kind of blanks and quotes, and invisible
// marks.
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

/// One or two numbers for each plural form of the language.
std::vector<double> samples(const icu::Locale& locale)
{
    std::vector<double> numbers{1.5};
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::PluralRules> rules(icu::PluralRules::forLocale(locale, status));
    if (U_FAILURE(status))
        return numbers;
    const std::unique_ptr<icu::StringEnumeration> forms(rules->getKeywords(status));
    while (const icu::UnicodeString* form = U_SUCCESS(status) ? forms->snext(status) : nullptr) {
        std::array<double, 2> some{};
        const auto count = rules->getSamples(*form, some.data(), static_cast<int32_t>(some.size()), status);
        // Reported if there are more samples than the buffer holds.
        if (status == U_BUFFER_OVERFLOW_ERROR)
            status = U_ZERO_ERROR;
        numbers.insert(numbers.end(), some.begin(), some.begin() + std::clamp(count, 0, 2));
    }
    return numbers;
}

/// Null if ICU has no data.
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

/// The number that the whole text says. Returns `nullopt` if a part of it is left over, and for a negative
/// number.
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
    const double number = at.getIndex() == units.length() ? value.getDouble(status) : unreadable;
    return U_SUCCESS(status) && std::isfinite(number) && !std::signbit(number) ? std::optional(number)
                                                                               : std::nullopt;
}

} // namespace

DistanceReader::DistanceReader(const QString& locale, const QString& numberLocale)
    : numberFormat_(strictFormat(icuLocale(numberLocale)))
{
    // If two units have the same name, the first one learnt is used. So the texts of `DistanceFormatter` are
    // read correctly.
    for (const QString& language : {locale, u"en_US"_s, u"en_GB"_s}) {
        for (const auto width : {LengthWidth::medium, LengthWidth::wide, LengthWidth::narrow}) {
            for (const auto unit : {LengthUnit::kilometer, LengthUnit::mile, LengthUnit::meter,
                     LengthUnit::yard, LengthUnit::foot})
                learn(language, width, unit);
        }
    }
    std::stable_sort(patterns_.begin(), patterns_.end(), [](const Pattern& left, const Pattern& right) {
        return left.prefix.size() + left.suffix.size() > right.prefix.size() + right.suffix.size();
    });
}

void DistanceReader::learn(const QString& locale, LengthWidth width, LengthUnit unit)
{
    const LengthFormatter formatter(locale, unit, width);
    for (const double value : samples(icuLocale(locale)))
        learn(folded(formatter.string(value)), value, unit);
}

void DistanceReader::learn(const QString& text, double value, LengthUnit unit)
{
    const auto isDigit = [](QChar character) { return character.isDigit(); };
    const auto first = std::find_if(text.begin(), text.end(), isDigit);
    if (first == text.end()) {
        phrases_.push_back({text, value * metersIn(unit)});
        return;
    }
    const auto last = std::find_if(text.rbegin(), text.rend(), isDigit).base();
    const Pattern pattern{
        text.left(first - text.begin()).trimmed(), text.mid(last - text.begin()).trimmed(), metersIn(unit)};
    const bool isKnown = std::any_of(patterns_.begin(), patterns_.end(), [&pattern](const Pattern& other) {
        return other.prefix == pattern.prefix && other.suffix == pattern.suffix;
    });
    if (!isKnown && pattern.prefix.size() + pattern.suffix.size() > 0)
        patterns_.push_back(pattern);
}

double DistanceReader::distance(const QString& text) const
{
    if (text.size() > longestText || !numberFormat_)
        return unreadable;
    const QString given = folded(text);
    for (const Pattern& pattern : patterns_) {
        if (!given.startsWith(pattern.prefix) || !given.endsWith(pattern.suffix)
            || given.size() <= pattern.prefix.size() + pattern.suffix.size())
            continue;
        const QString middle = given.sliced(pattern.prefix.size()).chopped(pattern.suffix.size()).trimmed();
        const double meters = strictNumber(middle, *numberFormat_).value_or(unreadable) * pattern.meters;
        if (meters >= 0 && std::isfinite(meters))
            return meters;
    }
    for (const Phrase& phrase : phrases_) {
        if (phrase.text == given)
            return phrase.meters;
    }
    return unreadable;
}

} // namespace quor::toolkit
