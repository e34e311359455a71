// SPDX-License-Identifier: MIT
#pragma once

#include <JavaScriptCore/JavaScript.h>

#include <QtGlobal>

#include <chrono>
#include <optional>

namespace quor::toolkit {

/// Watches the scripts of one engine, and ends a script that exceeds its limit of processor time or memory,
/// with an exception that the script cannot catch.
///
/// JavaScriptCore asks whether to end a script when its execution timer runs out. It starts such a timer each
/// time that it enters a script or a promise job, cancels none, and aborts the process if two timers run out
/// at nearly the same time. So this class lets a timer run only while a script with a time limit runs. The
/// memory, and the time of promise jobs, are checked after garbage collections. Therefore two excesses are
/// not noticed: a single long call of native code, as of `fill`, and promise jobs that allocate nothing, as
/// `for (;;) await 0`.
class ScriptWatch final {
public:
    enum class Excess { none, time, memory };

    /// `memory` is in bytes. `nullopt` and 0 mean no limit; without any limit the watch costs nothing.
    ScriptWatch(std::optional<std::chrono::milliseconds> time, qint64 memory);

    /// Attaches the watch to the engine. The watch must not be moved afterwards.
    void install(JSContextGroupRef group);

    /// Exists while code of the script runs, including promise jobs and conversions. The time counts from the
    /// beginning of the outermost `Run`.
    class Run final {
    public:
        explicit Run(ScriptWatch& watch);
        ~Run();
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

    private:
        ScriptWatch& watch_;
    };

    /// Exists within a `Run` while a whole script or function runs, as opposed to promise jobs and
    /// conversions.
    class Script final {
    public:
        explicit Script(ScriptWatch& watch);
        ~Script();
        Script(const Script&) = delete;
        Script& operator=(const Script&) = delete;

    private:
        ScriptWatch& watch_;
    };

    /// The limit that the current or last outermost `Run` has exceeded.
    [[nodiscard]] Excess excess() const { return excess_; }
    [[nodiscard]] bool isRunning() const { return runs_ > 0; }
    [[nodiscard]] bool limitsTime() const { return time_.has_value(); }

    /// Call this at the end of each host function. When the engine ends a script during a conversion in a
    /// host function, the conversion drops the exception and the script would go on. If a limit was exceeded,
    /// this has the engine end the script again, and returns true.
    bool endAgain();

private:
    using Clock = std::chrono::steady_clock;

    static bool shouldTerminate(JSContextRef context, void* watch);
    static void collected(JSContextGroupRef group, void* watch);
    [[nodiscard]] bool hasLimits() const { return time_ || memory_ > 0; }
    /// Starts a timer that runs out after `delay`, or later if it would be too close to another one.
    void startTimer(Clock::duration delay);
    [[nodiscard]] Excess measure(JSContextRef context) const;

    std::optional<std::chrono::milliseconds> time_;
    qint64 memory_;
    JSContextGroupRef group_ = nullptr;
    int runs_ = 0; ///< number of `Run` objects
    int scripts_ = 0; ///< number of `Script` objects
    std::chrono::nanoseconds started_{0}; ///< processor time at the beginning of the outermost `Run`
    Clock::time_point lastCollection_; ///< the last one after which the limits were checked
    Clock::time_point lastTimer_; ///< when the last of the started timers runs out
    Excess excess_ = Excess::none;
};

} // namespace quor::toolkit
