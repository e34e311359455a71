// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DurationFormatter.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// A text that a user may type into a duration field: the result is absent or finite, and its formatted text
// can be read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const quor::toolkit::DurationFormatter formatter;
    const auto* text = reinterpret_cast<const char*>(bytes);
    const auto duration = formatter.duration(QString::fromUtf8(text, static_cast<qsizetype>(size)), 2);
    if (!duration)
        return 0;
    if (!std::isfinite(*duration))
        std::abort();
    for (const bool inWorkingDays : {false, true}) {
        for (const QString& written : {formatter.clockString(inWorkingDays, true, true, *duration),
                 formatter.decimalString(inWorkingDays, true, 2, *duration)}) {
            if (!formatter.duration(written, 2))
                std::abort();
        }
    }
    return 0;
}
