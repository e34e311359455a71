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

/// The length of the unit in metres.
[[nodiscard]] double metersIn(LengthUnit unit);

/// Writes lengths in one unit and in the language of a locale, with at most 2 fraction digits, rounded half
/// to even, and without separators of thousands. What rounds to zero has no sign. Use an object on one thread
/// at a time.
class LengthFormatter final {
public:
    LengthFormatter(const QString& localeIdentifier, LengthUnit unit, LengthWidth width);
    ~LengthFormatter();
    LengthFormatter(const LengthFormatter&) = delete;
    LengthFormatter& operator=(const LengthFormatter&) = delete;

    /// `value` is in the formatter's unit. Returns an empty text for infinity and NaN.
    [[nodiscard]] QString string(double value) const;

private:
    class Format;

    std::unique_ptr<Format> format_; ///< never null
};

} // namespace quor::toolkit
