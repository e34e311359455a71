// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

namespace quor::toolkit {

enum class LengthUnit { kilometer, meter, mile, yard, foot };

enum class LengthWidth {
    narrow, ///< "5km", "6′"
    medium, ///< "5 km"
    wide, ///< "5 kilometers"
};

/// How many metres the unit is.
[[nodiscard]] double metersIn(LengthUnit unit);

/// Lengths as text in the language of a locale: at most 2 fraction digits, rounded half to even, without
/// separators of thousands. What rounds to zero has no sign. One thread at a time.
class LengthFormatter final {
public:
    LengthFormatter(const QString& localeIdentifier, LengthUnit unit, LengthWidth width);
    ~LengthFormatter();
    LengthFormatter(const LengthFormatter&) = delete;
    LengthFormatter& operator=(const LengthFormatter&) = delete;

    /// Empty for what is infinite or not a number.
    [[nodiscard]] QString string(double value) const;

private:
    class Format;

    std::unique_ptr<Format> format_; ///< never null
};

} // namespace quor::toolkit
