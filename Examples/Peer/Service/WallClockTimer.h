// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace quor::peer {

/// Fires once when the machine's wall clock reaches a moment, and also as soon as the clock was set,
/// either way, or the machine was asleep past that moment. It costs nothing in between. Main thread only.
class WallClockTimer final : public QObject {
    Q_OBJECT

public:
    explicit WallClockTimer(QObject* parent = nullptr);
    ~WallClockTimer() override;

    /// Replaces what was set before. A moment that has passed fires at the next turn.
    void fireAt(platform::Date moment);

Q_SIGNALS:
    void fired();

private:
    void read();

    int descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace quor::peer
