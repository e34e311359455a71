// SPDX-License-Identifier: MIT
#include "Platform/Views/Popover/PopoverPlacement.h"

#include <algorithm>

namespace quor::platform {

namespace {

// The free pixels between the anchor and the edge of the screen on one side of it.
int roomBeside(const PopoverSpace& space, RectEdge edge)
{
    switch (edge) {
    case RectEdge::minX:
        return space.anchor.left() - space.visibleFrame.left();
    case RectEdge::minY:
        return space.anchor.top() - space.visibleFrame.top();
    case RectEdge::maxX:
        return space.visibleFrame.right() - space.anchor.right();
    case RectEdge::maxY:
        return space.visibleFrame.bottom() - space.anchor.bottom();
    }
    Q_UNREACHABLE();
}

RectEdge chooseEdge(const PopoverSpace& space, RectEdge preferred)
{
    const RectEdge opposite = oppositeEdge(preferred);
    const bool isBeside = isVertical(preferred);
    for (const RectEdge edge : {preferred, opposite, isBeside ? RectEdge::maxY : RectEdge::maxX,
             isBeside ? RectEdge::minY : RectEdge::minX}) {
        const int needed = isVertical(edge) ? space.window.width() : space.window.height();
        if (needed <= roomBeside(space, edge))
            return edge;
    }
    return roomBeside(space, preferred) >= roomBeside(space, opposite) ? preferred : opposite;
}

// The top left corner of a window of this size on one side of the anchor, regardless of the screen.
QPoint cornerBeside(const QRect& anchor, QSize size, RectEdge edge)
{
    const QPoint centred
        = anchor.topLeft() + QPoint(anchor.width() - size.width(), anchor.height() - size.height()) / 2;
    switch (edge) {
    case RectEdge::minX:
        return {anchor.left() - size.width(), centred.y()};
    case RectEdge::minY:
        return {centred.x(), anchor.top() - size.height()};
    case RectEdge::maxX:
        return {anchor.right() + 1, centred.y()};
    case RectEdge::maxY:
        return {centred.x(), anchor.bottom() + 1};
    }
    Q_UNREACHABLE();
}

} // namespace

bool isVertical(RectEdge edge)
{
    return edge == RectEdge::minX || edge == RectEdge::maxX;
}

RectEdge oppositeEdge(RectEdge edge)
{
    switch (edge) {
    case RectEdge::minX:
        return RectEdge::maxX;
    case RectEdge::minY:
        return RectEdge::maxY;
    case RectEdge::maxX:
        return RectEdge::minX;
    case RectEdge::maxY:
        return RectEdge::minY;
    }
    Q_UNREACHABLE();
}

PopoverPlacement placePopover(const PopoverSpace& space, RectEdge preferredEdge)
{
    const RectEdge edge = chooseEdge(space, preferredEdge);
    const QRect& frame = space.visibleFrame;
    const QSize size = space.window.boundedTo(frame.size());
    const QPoint wanted = cornerBeside(space.anchor, size, edge);
    const QRect window(QPoint(std::clamp(wanted.x(), frame.left(), frame.right() + 1 - size.width()),
                           std::clamp(wanted.y(), frame.top(), frame.bottom() + 1 - size.height())),
        size);
    // A window too small for the inset has the tip in its middle.
    const auto tip = [&](int centre, int first, int length) {
        const int inset = std::min(space.tipInset, length / 2);
        return std::clamp(centre, first + inset, first + length - inset);
    };
    const QPoint centre = space.anchor.center();
    return {edge, window,
        isVertical(edge) ? tip(centre.y(), window.top(), window.height())
                         : tip(centre.x(), window.left(), window.width())};
}

} // namespace quor::platform
