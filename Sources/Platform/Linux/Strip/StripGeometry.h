// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

namespace quor::platform {

/// Room at the upper edge of the desktop that other windows are to leave free, in device pixels of
/// the whole desktop. A height of 0 reserves nothing.
struct TopStrut {
    int height = 0;
    int startX = 0;
    int endX = 0; ///< The last column, inclusive.

    friend bool operator==(const TopStrut&, const TopStrut&) = default;
};

/// Where a strip for items of this width stands on a screen, in device-independent pixels. At a
/// fractional scale it is a pixel wider than the items, to the right, since the screen's width is
/// then rounded and the strip could end short of the corner.
[[nodiscard]] QRect stripFrame(const QRect& screen, double scale, int itemsWidth, int thickness);

/// The strut of a strip on the first of these screens. It spans the whole screen, so that it need not
/// change with the items (at a fractional scale it may be a pixel short, but never reaches into the
/// next screen); there is none where another screen lies above, which would lose that room.
/// Screens are given as Qt tells them: positions in device pixels, sizes in device-independent ones.
[[nodiscard]] TopStrut stripStrut(
    const QRect& screen, double scale, int thickness, const QList<QRect>& others);

} // namespace quor::platform
