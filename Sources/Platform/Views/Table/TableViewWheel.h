// SPDX-License-Identifier: MIT
#pragma once

class QWheelEvent;

namespace quor::platform {

/// Turns wheel and touchpad events into whole pixels to scroll, and carries over what is less than
/// one, so that a slow finger and a wheel of high resolution move as far as a coarse one.
class TableViewWheel final {
public:
    /// How far to move down the content, in pixels; `pixelsPerLine` is what one line of the
    /// desktop's wheel setting is worth.
    [[nodiscard]] int pixelsDown(const QWheelEvent& event, int pixelsPerLine);

private:
    double rest_ = 0;
};

} // namespace quor::platform
