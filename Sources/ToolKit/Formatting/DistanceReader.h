// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Formatting/LengthFormatter.h"

#include <QString>

#include <unicode/decimfmt.h>

#include <memory>
#include <vector>

namespace quor::toolkit {

/// Reads a number with a unit of length as people write them. Understands the names of units in one language
/// and in English, in full or abbreviated, in upper or lower case, with or without blanks.
///
/// Numbers follow the rules of one locale, whatever the language of the unit. Separators of thousands are
/// accepted only at their places: with the rules of German, "1.500 km" are 1500 km, and "1.5 km" is
/// unreadable instead of being one and a half, or fifteen. Creation takes some milliseconds. Use an object on
/// one thread at a time.
class DistanceReader final {
public:
    /// `locale` determines the names of units, `numberLocale` the rules for numbers.
    DistanceReader(const QString& locale, const QString& numberLocale);

    /// The distance in metres. Returns -1 if `text` is no distance, has no unit, or if its number is negative
    /// or not finite.
    [[nodiscard]] double distance(const QString& text) const;

private:
    /// The texts before and after the number, folded.
    struct Pattern {
        QString prefix;
        QString suffix;
        double meters = 0;
    };

    /// A text without digits, such as "two kilometres" in a language with a dual.
    struct Phrase {
        QString text;
        double meters = 0;
    };

    void learn(const QString& locale, LengthWidth width, LengthUnit unit);
    void learn(const QString& text, double value, LengthUnit unit);

    std::unique_ptr<icu::DecimalFormat> numberFormat_; ///< null if ICU has no data
    std::vector<Pattern> patterns_; ///< longest first
    std::vector<Phrase> phrases_;
};

} // namespace quor::toolkit
