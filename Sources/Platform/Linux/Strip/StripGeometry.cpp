// SPDX-License-Identifier: MIT
#include "Platform/Linux/Strip/StripGeometry.h"

#include <algorithm>
#include <cmath>

namespace quor::platform {

QRect stripFrame(const QRect& screen, double scale, int itemsWidth, int thickness)
{
    const int overhang = std::floor(scale) == scale ? 0 : 1;
    return {screen.x() + screen.width() - itemsWidth, screen.y(), itemsWidth + overhang, thickness};
}

TopStrut stripStrut(const QRect& screen, double scale, int thickness, const QList<QRect>& others)
{
    const bool hasScreenAbove = std::ranges::any_of(others, [&](const QRect& other) {
        return other.y() < screen.y() && other.left() <= screen.right() && screen.left() <= other.right();
    });
    if (hasScreenAbove)
        return {};
    return {
        .height = screen.y() + int(std::ceil(thickness * scale)),
        .startX = screen.x(),
        .endX = screen.x() + int(screen.width() * scale) - 1,
    };
}

} // namespace quor::platform
