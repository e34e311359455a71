// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DistanceFormatter.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// The first byte selects a language, the rest is a text that a user may type into a field for distances. The
// result is negative (no distance) or finite, and its formatted text reads as the same distance again, within
// the rounding.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using quor::toolkit::DistanceFormatter;
    static const std::array<DistanceFormatter, 6> formatters{DistanceFormatter(QStringLiteral("de_DE")),
        DistanceFormatter(QStringLiteral("en_US")), DistanceFormatter(QStringLiteral("ar_EG")),
        DistanceFormatter(QStringLiteral("fr_CH")), DistanceFormatter(QStringLiteral("my_MM")),
        DistanceFormatter(QStringLiteral("sw_KE"))};
    if (size == 0)
        return 0;
    const DistanceFormatter& formatter = formatters[bytes[0] % formatters.size()];
    const auto* text = reinterpret_cast<const char*>(bytes) + 1;
    const double meters = formatter.distance(QString::fromUtf8(text, static_cast<qsizetype>(size - 1)));
    if (!std::isfinite(meters))
        std::abort();
    constexpr double halfDigit = 8.1; // of a hundredth of a mile
    // Rounding up can exceed the largest number.
    if (meters >= 0 && meters < 1e300
        && !(std::abs(formatter.distance(formatter.string(meters)) - meters) <= halfDigit + meters * 1e-9))
        std::abort();
    return 0;
}
