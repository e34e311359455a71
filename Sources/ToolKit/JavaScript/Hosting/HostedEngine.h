// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Hosting/HostCallServer.h"
#include "ToolKit/JavaScript/Hosting/LimitWatch.h"
#include "ToolKit/JavaScript/Hosting/ScriptChannel.h"

namespace quor::toolkit {

/// A JavaScript engine in a process of its own, which is killed when a script exceeds its limits. An error
/// with the reason of its end is then passed to the handler of exceptions, once. Exists as long as a
/// `JSValue` of it. One thread at a time, any thread.
class HostedEngine final : public std::enable_shared_from_this<HostedEngine> {
public:
    /// Starts the process.
    HostedEngine(ScriptLimits limits, std::shared_ptr<const JavaScriptUtils> utils,
        HostCallServer::ExceptionHandler handler);

    /// Runs the script and the promise jobs that it leaves, and returns the value of its last expression.
    /// Returns `nullopt` if the script throws or the process ends. Call it once.
    [[nodiscard]] std::optional<JSValue> run(
        const QString& script, const ScriptValue::Map& parameters, const ScriptValue::Map& helpers);
    /// Asks the process. Returns `nullopt` if it has ended.
    [[nodiscard]] std::optional<ScriptValue> request(ScriptOperation operation, ScriptValue::List values);
    /// The value of a request whose reply is an optional reference.
    [[nodiscard]] std::optional<JSValue> requestHandle(ScriptOperation operation, ScriptValue::List values);
    /// Makes the process forget a value.
    void release(quint32 number) { channel_->release(number); }

private:
    void prepare();
    [[nodiscard]] QString reasonOfEnd();
    [[nodiscard]] std::optional<JSValue> handle(const ScriptValue& reference);

    HostCallServer server_;
    ScriptLimits limits_;
    QString failure_; ///< why the process has ended, or could not be started; empty while it runs
    std::unique_ptr<HostProcess> process_; ///< null if it could not be started
    std::unique_ptr<ScriptChannel> channel_;
    std::optional<LimitWatch> watch_; ///< as soon as the process is ready
    int requests_ = 0; ///< that are nested now
    bool isReported_ = false;
};

} // namespace quor::toolkit
