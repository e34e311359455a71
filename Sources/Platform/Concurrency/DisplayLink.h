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

/// A timer that calls back at the refresh rate of a screen, on a thread of its own.
///
/// It follows changes of the rate, and keeps the last rate when the screen is removed. Calls are not
/// synchronized with the moments at which the screen shows a picture. While a callback takes longer than
/// a frame, the calls that it misses are left out. Main thread, except for the callback.
class DisplayLink final {
public:
    explicit DisplayLink(const QScreen& screen);
    ~DisplayLink(); ///< Calls `stop`, so the callback must not destroy this object.
    DisplayLink(const DisplayLink&) = delete;
    DisplayLink& operator=(const DisplayLink&) = delete;

    /// Sets the closure to call. Only while stopped. It runs on the thread of this object and must not
    /// throw.
    void setOutputCallback(std::function<void()> callback);

    [[nodiscard]] bool isRunning() const { return thread_.joinable(); }

    /// Starts the thread. The first call comes one frame later. Has no effect while running, or without a
    /// callback. Stays stopped if the system gives no further thread; a later call can succeed.
    void start();

    /// Waits for a call that is under way; after that there are no more calls until the next `start`. The
    /// callback must not call this, nor wait for the thread that calls this. Has no effect while stopped.
    void stop();

private:
    void setRefreshRate(double rate);
    void run();

    QMetaObject::Connection rateChange_;
    std::function<void()> callback_;
    std::mutex mutex_; ///< Guards the next three members.
    std::condition_variable ending_;
    std::chrono::nanoseconds frame_{};
    bool isEnding_ = false;
    std::thread thread_;
};

} // namespace quor::platform
