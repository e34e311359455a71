// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/DisplayLink.h"

#include <QScreen>

#include <algorithm>
#include <cmath>
#include <system_error>
#include <utility>

#include <pthread.h>

namespace quor::platform {

namespace {

// Virtual screens report rates such as 0.
std::chrono::nanoseconds frameOf(double refreshRate)
{
    constexpr double leastRate = 1;
    constexpr double mostRate = 1000;
    constexpr double usualRate = 60;
    const bool isCredible = refreshRate >= leastRate && refreshRate <= mostRate;
    return std::chrono::nanoseconds(std::llround(std::nano::den / (isCredible ? refreshRate : usualRate)));
}

} // namespace

DisplayLink::DisplayLink(const QScreen& screen)
    : rateChange_(
        QObject::connect(&screen, &QScreen::refreshRateChanged, [this](qreal rate) { setRefreshRate(rate); }))
    , frame_(frameOf(screen.refreshRate()))
{
}

DisplayLink::~DisplayLink()
{
    QObject::disconnect(rateChange_);
    stop();
}

void DisplayLink::setOutputCallback(std::function<void()> callback)
{
    callback_ = std::move(callback);
}

void DisplayLink::setRefreshRate(double rate)
{
    const std::lock_guard lock(mutex_);
    frame_ = frameOf(rate);
}

void DisplayLink::start()
{
    if (isRunning() || !callback_)
        return;
    isEnding_ = false;
    try {
        thread_ = std::thread([this] { run(); });
    } catch (const std::system_error&) {
        // Without a thread this stays stopped, as the header says.
    }
}

void DisplayLink::stop()
{
    if (!isRunning())
        return;
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    ending_.notify_one();
    thread_.join();
}

void DisplayLink::run()
{
    pthread_setname_np(pthread_self(), "DisplayLink");
    std::unique_lock lock(mutex_);
    auto next = std::chrono::steady_clock::now() + frame_;
    while (!ending_.wait_until(lock, next, [this] { return isEnding_; })) {
        lock.unlock();
        callback_();
        lock.lock();
        const auto late = std::max(std::chrono::steady_clock::now() - next, {});
        next += frame_ * (late / frame_ + 1);
    }
}

} // namespace quor::platform
