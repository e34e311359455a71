// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Panels/PanelPlacement.h"

#include <algorithm>

namespace quor::formkit {

namespace {

int roomBelow(const QRect& anchor, const QRect& screen)
{
    return screen.bottom() - anchor.bottom();
}

int roomAbove(const QRect& anchor, const QRect& screen)
{
    return anchor.top() - screen.top();
}

} // namespace

PanelSide panelSide(const QRect& anchor, int height, const QRect& screen)
{
    const int below = roomBelow(anchor, screen);
    const int above = roomAbove(anchor, screen);
    return height <= below || (height > above && below >= above) ? PanelSide::below : PanelSide::above;
}

QRect placePanel(
    const QRect& anchor, QSize size, const QRect& screen, PanelSide side, Qt::LayoutDirection direction)
{
    const int room = side == PanelSide::below ? roomBelow(anchor, screen) : roomAbove(anchor, screen);
    const int width = std::min(size.width(), screen.width());
    const int height = std::min(size.height(), std::max(room, 1));
    const int wanted = direction == Qt::RightToLeft ? anchor.right() + 1 - width : anchor.left();
    const int left = std::clamp(wanted, screen.left(), screen.right() + 1 - width);
    const int top = side == PanelSide::below ? anchor.bottom() + 1 : anchor.top() - height;
    const int highest = std::max(screen.top(), screen.bottom() + 1 - height);
    return {left, std::clamp(top, screen.top(), highest), width, height};
}

QRect placePanelBeside(
    const QRect& anchor, QSize size, const QRect& screen, int distance, Qt::LayoutDirection direction)
{
    const QSize shown = size.boundedTo(screen.size());
    const int left = anchor.left() - distance - shown.width();
    const int right = anchor.right() + 1 + distance;
    const bool fitsLeft = left >= screen.left();
    const bool fitsRight = right + shown.width() <= screen.right() + 1;
    const bool isLeft = direction == Qt::RightToLeft ? fitsLeft && !fitsRight : fitsLeft || !fitsRight;
    const int middle = anchor.top() + (anchor.height() - shown.height()) / 2;
    return {QPoint(std::clamp(isLeft ? left : right, screen.left(), screen.right() + 1 - shown.width()),
                std::clamp(middle, screen.top(), screen.bottom() + 1 - shown.height())),
        shown};
}

} // namespace quor::formkit
