// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/RectEdge.h"

#include <QRect>
#include <QSize>

namespace quor::platform {

/// What decides where a popover is placed. In screen coordinates and device-independent pixels.
struct PopoverSpace {
    QRect anchor; ///< What the arrow points to.
    QSize window; ///< The size of the popover's window, with the arrow.
    QRect visibleFrame; ///< The part of the screen that the window must not leave.
    int tipInset; ///< The least distance of the arrow's tip from the corners of the window.
};

/// Where a popover is, in screen coordinates.
struct PopoverPlacement {
    RectEdge edge; ///< The side of the anchor on which the popover is.
    QRect window; ///< Smaller than wanted if the screen has too little room.
    int tip; ///< What the arrow points to: an x above or below the anchor, a y beside it.

    friend bool operator==(const PopoverPlacement&, const PopoverPlacement&) = default;
};

/// Whether the edge is a left or right one.
[[nodiscard]] bool isVertical(RectEdge edge);
[[nodiscard]] RectEdge oppositeEdge(RectEdge edge);

/// Places a popover beside its anchor: on the preferred side, else on the opposite one, else on one of the
/// other two, wherever the screen has the room. If no side has, the popover covers a part of its anchor. It
/// is centred on the anchor, as far as the screen permits.
[[nodiscard]] PopoverPlacement placePopover(const PopoverSpace& space, RectEdge preferredEdge);

} // namespace quor::platform
