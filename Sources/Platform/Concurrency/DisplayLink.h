// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaObject>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

class QScreen;

namespace quor::platform {

/// Calls back once for every refresh of a screen, on a thread of its own, while it is started.
///
/// The pace is the screen's refresh rate, also when that changes; once the screen has gone, its last one.
/// It is not in step with the picture on the screen. A callback that takes longer than a frame has those
/// in between left out. Without a start there is no thread. Main thread, but for the callback.
class DisplayLink final {
public:
    explicit DisplayLink(const QScreen& screen);
    ~DisplayLink(); ///< Stops.
    DisplayLink(const DisplayLink&) = delete;
    DisplayLink& operator=(const DisplayLink&) = delete;

    /// What is called; to be set while this is stopped. It may not throw, nor touch what only
    /// the main thread may.
    void setOutputCallback(std::function<void()> callback);

    [[nodiscard]] bool isRunning() const { return thread_.joinable(); }
    void start(); ///< The first call comes a frame later. Harmless while it runs, or without a callback.

    /// Returns when no call is under way and none will follow, so the callback may not wait for the
    /// thread that stops. Harmless while it is stopped.
    void stop();

private:
    void setRefreshRate(double rate);
    void run();

    QMetaObject::Connection rateChange_;
    std::function<void()> callback_;
    std::mutex mutex_; ///< Guards the next three.
    std::condition_variable ending_;
    std::chrono::nanoseconds frame_{};
    bool isEnding_ = false;
    std::thread thread_;
};

} // namespace quor::platform
