// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

namespace quor::platform {

/// Room at the upper edge of the desktop for other windows to leave free, in device pixels of the whole
/// desktop. A height of 0 reserves nothing.
struct TopStrut {
    int height = 0;
    int startX = 0;
    int endX = 0; ///< the last column, inclusive

    friend bool operator==(const TopStrut&, const TopStrut&) = default;
};

/// Returns the frame of a strip for items of this width on `screen`, in Qt's screen coordinates: the top
/// right corner. At a fractional scale the strip reaches one pixel over the right edge, since the width
/// of the screen is then rounded and the strip could end before the corner.
[[nodiscard]] QRect stripFrame(const QRect& screen, double scale, int itemsWidth, int thickness);

/// Returns the strut of a strip on `screen`, which spans the whole screen, so that it need not change with
/// the items. Returns an empty one if one of the `others` lies above, since that screen would lose the
/// room. At a fractional scale the strut may be a pixel too short, but never reaches into the next screen.
///
/// Screens are given as Qt does: positions in device pixels, sizes in device-independent pixels.
[[nodiscard]] TopStrut stripStrut(
    const QRect& screen, double scale, int thickness, const QList<QRect>& others);

} // namespace quor::platform
