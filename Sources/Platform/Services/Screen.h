// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <optional>

class QScreen;

namespace quor::platform {

/// The geometry of a screen at the moment at which it was read, in the coordinates of `QScreen` (y grows
/// downwards). At a scale other than 1 these are mixed: the position of a screen's top left corner on the
/// desktop is in device pixels; sizes, and distances from that corner, are in device-independent pixels.
struct Screen {
    QRectF frame;
    QRectF visibleFrame; ///< `frame` without the edges that panels reserve.
    std::optional<QRectF> auxiliaryTopLeftArea; ///< The area left of a notch; `nullopt` without a notch.
    double backingScaleFactor = 1; ///< Device pixels for each device-independent pixel.

    /// The result has no `auxiliaryTopLeftArea`, as Qt does not report notches.
    [[nodiscard]] static Screen fromQScreen(const QScreen& screen);

    /// Returns the primary screen, or `nullopt` while no screen is connected.
    [[nodiscard]] static std::optional<Screen> mainScreen();

    friend bool operator==(const Screen&, const Screen&) = default;
};

} // namespace quor::platform
