// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/DelayedAction.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <utility>

namespace quor::toolkit {

namespace {

// Rounded up, so that nothing runs early, and clamped to what a timer of the event loop can hold.
std::chrono::milliseconds timerInterval(double seconds)
{
    const double longest = std::numeric_limits<int>::max();
    const double milliseconds = std::isnan(seconds) ? 0 : std::ceil(seconds * 1000);
    return std::chrono::milliseconds(static_cast<int>(std::clamp(milliseconds, 0.0, longest)));
}

} // namespace

DelayedAction::DelayedAction(double delay)
    : delay_(delay)
{
}

void DelayedAction::run(std::function<void()> action)
{
    cancel();
    waitWorkItem_ = platform::MainQueue::after(timerInterval(delay_), std::move(action));
}

void DelayedAction::cancel()
{
    waitWorkItem_.cancel();
}

} // namespace quor::toolkit
