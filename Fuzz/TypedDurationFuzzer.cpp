// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DurationFormatter.h"
#include "ToolKit/Formatting/TypedDuration.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

// A text that a user may paste into a field for durations: the result is absent or finite.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const auto formatter = [] {
        auto made = std::make_unique<quor::toolkit::DurationFormatter>();
        made->configure(true, false, 28800);
        return made;
    }();
    const auto* text = reinterpret_cast<const char*>(bytes);
    const auto duration
        = quor::toolkit::typedDuration(QString::fromUtf8(text, static_cast<qsizetype>(size)), *formatter);
    if (duration && !std::isfinite(*duration))
        std::abort();
    return 0;
}
