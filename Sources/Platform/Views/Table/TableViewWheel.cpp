// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewWheel.h"

#include <QApplication>
#include <QWheelEvent>

#include <cmath>

namespace quor::platform {

int TableViewWheel::pixelsDown(const QWheelEvent& event, int pixelsPerLine)
{
    // Under X11 the pixels are whatever the driver counts in.
    const bool hasPixels
        = !event.pixelDelta().isNull() && QGuiApplication::platformName() != QLatin1String("xcb");
    const double notches = event.angleDelta().y() / double{QWheelEvent::DefaultDeltasPerStep};
    const double down
        = hasPixels ? -event.pixelDelta().y() : -notches * QApplication::wheelScrollLines() * pixelsPerLine;
    if (down * rest_ < 0 || event.phase() == Qt::ScrollBegin)
        rest_ = 0; // a turn back answers at once
    rest_ += down;
    const double whole = std::trunc(rest_);
    rest_ -= whole;
    return static_cast<int>(whole);
}

} // namespace quor::platform
