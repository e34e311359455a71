// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"

#include <QColor>

namespace quor::platform {

/// A colour with one value for the light and another for the dark colour scheme.
struct DynamicColor {
    QColor light;
    QColor dark;

    [[nodiscard]] QColor resolved(ColorScheme scheme) const
    {
        return scheme == ColorScheme::dark ? dark : light;
    }

    friend bool operator==(const DynamicColor&, const DynamicColor&) = default;
};

} // namespace quor::platform
