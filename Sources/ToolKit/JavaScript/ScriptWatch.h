// SPDX-License-Identifier: MIT
#pragma once

#include <JavaScriptCore/JavaScript.h>

#include <QtGlobal>

#include <chrono>
#include <optional>

namespace quor::toolkit {

/// Ends a script that exceeds its processor time or its memory with an exception that the script cannot
/// catch. Belongs to one engine.
///
/// The engine asks when a timer of its own has run out. It sets one each time that it enters a script or a
/// promise job, forgets none, and ends the process if two of them run out within a hair of another. So there
/// is a timer only while a script with a limit of time runs; the memory, and the time of promise jobs, are
/// looked at after collections. Not noticed are native code while it works alone, as in `fill`, and jobs
/// that keep nothing, as of a bare `for (;;) await 0`.
class ScriptWatch final {
public:
    enum class Excess { none, time, memory };

    /// A time of none and a memory of 0 mean no limit; without both the watch costs nothing.
    ScriptWatch(std::optional<std::chrono::milliseconds> time, qint64 memory);

    void install(JSContextGroupRef group);

    /// Code of the script runs: the time counts from the outermost of these on.
    class Run final {
    public:
        explicit Run(ScriptWatch& watch);
        ~Run();
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

    private:
        ScriptWatch& watch_;
    };

    /// Within a `Run`: a whole script or function runs, rather than single jobs or conversions.
    class Script final {
    public:
        explicit Script(ScriptWatch& watch);
        ~Script();
        Script(const Script&) = delete;
        Script& operator=(const Script&) = delete;

    private:
        ScriptWatch& watch_;
    };

    [[nodiscard]] Excess excess() const { return excess_; } ///< until the next `Run` that is not within one
    [[nodiscard]] bool isRunning() const { return depth_ > 0; }
    [[nodiscard]] bool limitsTime() const { return time_.has_value(); }

    /// A conversion within a host function swallows the end that the engine put to the script. Tells
    /// whether that may have been, and has the engine end the script again at once.
    bool endAgain();

private:
    using Clock = std::chrono::steady_clock;

    static bool shouldTerminate(JSContextRef context, void* watch);
    static void collected(JSContextGroupRef group, void* watch);
    [[nodiscard]] bool isOn() const { return time_ || memory_ > 0; }
    void arm(Clock::duration delay);
    [[nodiscard]] Excess measure(JSContextRef context) const;

    std::optional<std::chrono::milliseconds> time_;
    qint64 memory_;
    JSContextGroupRef group_ = nullptr;
    int depth_ = 0;
    int scripts_ = 0;
    std::chrono::nanoseconds started_{0};
    Clock::time_point measured_;
    Clock::time_point lastTimer_; ///< when the last of the timers set runs out
    Excess excess_ = Excess::none;
};

} // namespace quor::toolkit
