// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Formatting/LengthFormatter.h"

#include <QString>
#include <QStringList>

#include <unicode/decimfmt.h>

#include <memory>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// Reads a number with a unit of length, as people write them: in the words of a language or of English,
/// spelled or short, in any case, with or without blanks.
///
/// The number is read by the rules of the language first, with thousands where they belong and nowhere
/// else, and then by those of American English: in German "1.500 km" are 1500, and "1.5 km" are 1.5. Making
/// one takes some milliseconds. One thread at a time.
class DistanceReader final {
public:
    /// `locale` gives the words. Numbers are read as in each of `numberLocales`, in order.
    DistanceReader(const QString& locale, const QStringList& numberLocales);

    /// In metres; -1 for what is no distance, has no unit or is negative or not finite.
    [[nodiscard]] double distance(const QString& text) const;

private:
    /// What stands around the number, folded.
    struct Pattern {
        QString prefix;
        QString suffix;
        double meters = 0;
    };

    /// A text that has no digits, as "two kilometres" in a language with a dual.
    struct Phrase {
        QString text;
        double meters = 0;
    };

    void learn(const QString& locale, LengthWidth width, LengthUnit unit);
    void learn(const QString& text, double value, LengthUnit unit);
    [[nodiscard]] std::optional<double> number(const QString& text) const;

    std::vector<std::unique_ptr<icu::DecimalFormat>> numberFormats_; ///< in order of preference
    std::vector<Pattern> patterns_; ///< the longest first
    std::vector<Phrase> phrases_;
};

} // namespace quor::toolkit
