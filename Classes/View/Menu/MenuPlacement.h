// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Screen.h"

#include <QPoint>
#include <QRectF>
#include <QSize>

#include <optional>

namespace quor::helper {

/// The top left corner of a menu's window of this size: below its anchor and aligned with its left edge,
/// or with its right edge where it would cross the right end of the room that the screen leaves free.
/// It never begins left of the screen.
///
/// All in the coordinates of `QScreen`, y down. `screen` is the anchor's; without one the window ends at
/// the anchor's right edge.
[[nodiscard]] QPoint menuPosition(
    const QRectF& anchor, const QSize& window, const std::optional<platform::Screen>& screen);

} // namespace quor::helper
