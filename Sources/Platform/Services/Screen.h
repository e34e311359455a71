// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <optional>

class QScreen;

namespace quor::platform {

/// A screen, as a value, in the coordinates of `QScreen`, y down: the screen's own origin in device
/// pixels of the whole desktop, sizes and places on the screen in device-independent ones.
struct Screen {
    QRectF frame;
    QRectF visibleFrame; ///< `frame` less what panels reserve.
    std::optional<QRectF> auxiliaryTopLeftArea; ///< Left of a notch; none where the screen has none.
    double backingScaleFactor = 1;

    [[nodiscard]] static Screen fromQScreen(const QScreen& screen);

    /// The primary screen; none while no screen is connected.
    [[nodiscard]] static std::optional<Screen> mainScreen();

    friend bool operator==(const Screen&, const Screen&) = default;
};

} // namespace quor::platform
