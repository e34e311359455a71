// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace quor::peer {

/// Something to spend time on.
struct Task {
    QString id; ///< "T1", "T2" ... in order of creation
    QString name; ///< never empty; need not be unique
    std::optional<std::uint32_t> color; ///< 0xRRGGBB

    friend bool operator==(const Task&, const Task&) = default;
};

} // namespace quor::peer
