// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <Qt>

/// Where panels that open from a control stand, in screen coordinates.
namespace quor::formkit {

enum class PanelSide { below, above };

/// Returns the side of the control `anchor` on which there is room for a panel of `height`: below if
/// possible. If there is enough room on neither side, returns the one with more.
[[nodiscard]] PanelSide panelSide(const QRect& anchor, int height, const QRect& screen);

/// Returns the rectangle of a panel at this side of `anchor`, which begins where the anchor begins in this
/// direction. It is moved, and if need be made smaller, so that it stays on the screen.
[[nodiscard]] QRect placePanel(
    const QRect& anchor, QSize size, const QRect& screen, PanelSide side, Qt::LayoutDirection direction);

/// Returns the rectangle of a panel that stands `distance` before `anchor` in this direction, so left of it
/// from left to right, and after it where there is no room. Their middles are at the same height, as far as
/// the panel stays on the screen then.
[[nodiscard]] QRect placePanelBeside(
    const QRect& anchor, QSize size, const QRect& screen, int distance, Qt::LayoutDirection direction);

} // namespace quor::formkit
