// SPDX-License-Identifier: MIT
#pragma once

class QWheelEvent;

namespace quor::platform {

/// Converts wheel and touchpad events to whole pixels to scroll. Fractions of a pixel are added to the next
/// event, so that a slow finger and a wheel of high resolution scroll as far as a coarse wheel.
class TableViewWheel final {
public:
    /// How far to scroll down, in device-independent pixels; negative for up. The desktop's wheel setting
    /// counts lines, each of them `pixelsPerLine` high.
    [[nodiscard]] int pixelsDown(const QWheelEvent& event, int pixelsPerLine);

private:
    double remainder_ = 0;
};

} // namespace quor::platform
