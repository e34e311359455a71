// SPDX-License-Identifier: MIT
#pragma once

#include "Support/WaitFor.h"

#include <QPoint>
#include <QProcess>
#include <QString>

namespace quor::test {

/// Runs xdotool with these arguments, separated by spaces, while the event loop runs. Returns whether it
/// could do everything. The events need not have arrived yet.
inline bool xdotool(const QString& arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments.split(u' ', Qt::SkipEmptyParts));
    return waitFor([&] { return process.state() == QProcess::NotRunning; }) && process.exitCode() == 0;
}

/// The arguments of xdotool that move the pointer to a place on the desktop, in device pixels.
inline QString at(QPoint place)
{
    return QStringLiteral("mousemove %1 %2 ").arg(place.x()).arg(place.y());
}

} // namespace quor::test
