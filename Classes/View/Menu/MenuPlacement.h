// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Screen.h"

#include <QPoint>
#include <QRectF>
#include <QSize>

#include <optional>

namespace quor::helper {

/// Returns the top left corner of a menu's window of the size `window`. The window hangs below `anchor`,
/// aligned with its left edge, or with its right edge if it would cross the right edge of the screen's
/// visible frame otherwise. It never begins to the left of the screen.
///
/// All values are in the coordinates of `QScreen`. `screen` is the screen of the anchor; without a screen the
/// right edges are aligned.
[[nodiscard]] QPoint menuPosition(
    const QRectF& anchor, const QSize& window, const std::optional<platform::Screen>& screen);

} // namespace quor::helper
