// SPDX-License-Identifier: MIT
#pragma once

#include <JavaScriptCore/JavaScript.h>

#include <QtGlobal>

#include <chrono>
#include <optional>

namespace quor::toolkit {

/// Ends a script that exceeds its processor time or its memory with an exception that the script cannot
/// catch. The engine asks some fifty times in a second of processor time; while native code works alone,
/// as in `fill`, it does not ask. Belongs to one engine.
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

    [[nodiscard]] Excess excess() const { return excess_; }

    /// A conversion within a host function swallows the end that the engine put to the script. Tells
    /// whether that may have been, and has the engine end the script again at once.
    bool endAgain();

private:
    static bool shouldTerminate(JSContextRef context, void* watch);
    void arm(double seconds);
    [[nodiscard]] Excess measure(JSContextRef context) const;

    std::optional<std::chrono::milliseconds> time_;
    qint64 memory_;
    JSContextGroupRef group_ = nullptr;
    int depth_ = 0;
    std::chrono::nanoseconds started_{0};
    Excess excess_ = Excess::none;
};

} // namespace quor::toolkit
