// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

namespace quor::test {

/// A clock whose time changes only when the test changes it.
class TestClock final : public platform::Clock {
public:
    explicit TestClock(double seconds = 1'700'000'000)
        : now_(platform::dateFromSeconds(seconds))
    {
    }
    [[nodiscard]] platform::Date now() const override { return now_; }
    void advance(double seconds) { now_ += std::chrono::duration<double>(seconds); }

private:
    platform::Date now_;
};

} // namespace quor::test
