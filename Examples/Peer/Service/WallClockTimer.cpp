// SPDX-License-Identifier: MIT
#include "Peer/Service/WallClockTimer.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>

namespace quor::peer {

WallClockTimer::WallClockTimer(QObject* parent)
    : QObject(parent)
    , descriptor_(timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC))
    , notifier_(std::make_unique<QSocketNotifier>(descriptor_.get(), QSocketNotifier::Read))
{
    connect(notifier_.get(), &QSocketNotifier::activated, this, &WallClockTimer::read);
}

WallClockTimer::~WallClockTimer() = default;

// NOLINTNEXTLINE(readability-make-member-function-const): it changes the timer in the kernel.
void WallClockTimer::fireAt(platform::Date moment)
{
    // The kernel takes 0 as a request to disarm the timer.
    const double seconds = std::max(1.0, platform::secondsSince1970(moment));
    const double whole = std::floor(seconds);
    itimerspec when{};
    when.it_value.tv_sec = static_cast<time_t>(whole);
    when.it_value.tv_nsec = static_cast<long>((seconds - whole) * 1e9);
    timerfd_settime(descriptor_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
}

void WallClockTimer::read()
{
    std::uint64_t expirations = 0;
    // Fails with ECANCELED when the clock was set, which is a reason to fire, too.
    if (::read(descriptor_.get(), &expirations, sizeof expirations) < 0 && errno != ECANCELED)
        return;
    Q_EMIT fired();
}

} // namespace quor::peer
