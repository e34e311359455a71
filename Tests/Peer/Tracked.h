// SPDX-License-Identifier: MIT
#pragma once

#include "Peer/Model/Store.h"
#include "Peer/Model/Tracker.h"
#include "Support/TestClock.h"

#include <QStringList>

namespace quor::test {

/// A tracker with a test clock, and with its data in memory only.
struct Tracked {
    Tracked(double now, const QStringList& tasks)
        : clock(now)
    {
        tracker.addTasks(tasks, {});
    }

    void moveTo(double seconds) { clock.advance(seconds - platform::secondsSince1970(clock.now())); }

    /// Adds an entry of the last task, from one moment to another.
    void track(double start, double end)
    {
        moveTo(start);
        tracker.start(tracker.tasks().back().id);
        moveTo(end);
        tracker.stop(tracker.tasks().back().id);
    }

    TestClock clock;
    peer::Store store{std::nullopt};
    peer::Tracker tracker{clock, store};
};

} // namespace quor::test
