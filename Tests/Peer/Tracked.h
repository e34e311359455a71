// SPDX-License-Identifier: MIT
#pragma once

#include "Peer/Model/Store.h"
#include "Peer/Model/Tracker.h"
#include "Support/TestClock.h"

namespace quor::test {

/// A tracker at a clock of the test's, its data in memory alone.
struct Tracked {
    explicit Tracked(double now = 1'700'000'000)
        : clock(now)
    {
    }

    [[nodiscard]] double now() const { return platform::secondsSince1970(clock.now()); }
    void moveTo(double seconds) { clock.advance(seconds - now()); }

    /// An entry of the last task, from one moment to another.
    void track(double start, double end)
    {
        moveTo(start);
        (void)tracker.start(tracker.tasks().back().id);
        moveTo(end);
        (void)tracker.stop(tracker.tasks().back().id);
    }

    TestClock clock;
    peer::Store store{std::nullopt};
    peer::Tracker tracker{clock, store};
};

} // namespace quor::test
