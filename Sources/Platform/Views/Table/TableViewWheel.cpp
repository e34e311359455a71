// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewWheel.h"

#include <QApplication>
#include <QWheelEvent>

#include <cmath>

namespace quor::platform {

int TableViewWheel::pixelsDown(const QWheelEvent& event, int pixelsPerLine)
{
    // Under X11 the unit of the pixel delta depends on the driver.
    const bool hasPixels
        = !event.pixelDelta().isNull() && QGuiApplication::platformName() != QLatin1String("xcb");
    const double notches = event.angleDelta().y() / double{QWheelEvent::DefaultDeltasPerStep};
    const double down
        = hasPixels ? -event.pixelDelta().y() : -notches * QApplication::wheelScrollLines() * pixelsPerLine;
    if (down * remainder_ < 0 || event.phase() == Qt::ScrollBegin)
        remainder_ = 0; // a turn in the other direction takes effect at once
    remainder_ += down;
    const double whole = std::trunc(remainder_);
    remainder_ -= whole;
    return static_cast<int>(whole);
}

} // namespace quor::platform
