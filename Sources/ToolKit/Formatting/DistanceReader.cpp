// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DistanceReader.h"

#include "Platform/Text/ICUText.h"
#include "ToolKit/Formatting/ICULocale.h"
#include "ToolKit/Formatting/TypedNumber.h"

#include <unicode/plurrule.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr double unreadable = -1;

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
    if (text.size() > longestTypedNumber || !numberFormat_)
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
