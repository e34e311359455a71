// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"
#include "Platform/Services/Clock.h"

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace quor::peer {

/// A timer that fires once when the wall clock reaches a moment. It also fires when the clock is set, forward
/// or backward, and after the machine has slept past the moment. Uses no processor time while it waits. Main
/// thread only.
class WallClockTimer final : public QObject {
    Q_OBJECT

public:
    explicit WallClockTimer(QObject* parent = nullptr);
    ~WallClockTimer() override;

    /// Replaces the moment that was set before. If `moment` has passed, the timer fires in the next turn of
    /// the event loop.
    void fireAt(platform::Date moment);

Q_SIGNALS:
    void fired();

private:
    void read();

    platform::FileDescriptor descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace quor::peer
