// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>

namespace quor::platform {

/// A range of a text, in UTF-16 units.
struct TextRange {
    qsizetype location = 0;
    qsizetype length = 0;

    [[nodiscard]] qsizetype end() const { return location + length; }

    /// The part of this range that lies within a text of `size` units.
    [[nodiscard]] TextRange clipped(qsizetype size) const
    {
        const qsizetype from = std::clamp<qsizetype>(location, 0, size);
        const qsizetype before = std::max<qsizetype>(-location, 0); // the part of this range before the text
        return {from, std::clamp<qsizetype>(length - before, 0, size - from)};
    }

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

} // namespace quor::platform
