// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

#include <chrono>
#include <functional>

namespace quor::test {

/// Runs the event loop until `condition` returns true. Returns false if it does not within `limit`.
inline bool waitFor(
    const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(5))
{
    QElapsedTimer clock;
    clock.start();
    bool holds = condition();
    while (!holds && clock.elapsed() < limit.count()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        holds = condition();
    }
    return holds;
}

} // namespace quor::test
