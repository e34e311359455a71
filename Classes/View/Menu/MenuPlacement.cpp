// SPDX-License-Identifier: MIT
#include "View/Menu/MenuPlacement.h"

#include <algorithm>

namespace quor::helper {

QPoint menuPosition(const QRectF& anchor, const QSize& window, const std::optional<platform::Screen>& screen)
{
    double left = anchor.left();
    const double rightEnd = screen ? screen->visibleFrame.right() : 0;
    if (rightEnd < left + window.width()) {
        // At a fractional scale, rounding may put the anchor's edge one pixel outside the screen.
        const double right = screen ? std::min(anchor.right(), screen->frame.right()) : anchor.right();
        left = right - window.width();
        if (screen)
            left = std::max(left, screen->frame.left());
    }
    return QPointF(left, anchor.bottom()).toPoint();
}

} // namespace quor::helper
