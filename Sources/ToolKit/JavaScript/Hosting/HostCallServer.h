// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "ToolKit/JavaScript/Hosting/ScriptMessage.h"
#include "ToolKit/JavaScript/JavaScriptUtils.h"

#include <memory>

namespace quor::toolkit {

/// Serves, in the application, what the process of a script cannot do itself: files, requests, the error log,
/// and the report of exceptions. The values that it gets are not trusted.
class HostCallServer final {
public:
    using ExceptionHandler = platform::Callback<void(const JSValue& exception)>;
    using MakeHandle = std::function<std::optional<JSValue>(const ScriptValue& reference)>;

    HostCallServer(std::shared_ptr<const JavaScriptUtils> utils, ExceptionHandler handler)
        : utils_(std::move(utils))
        , handler_(std::move(handler))
    {
    }

    /// Returns undefined for an operation that only the script's process serves.
    [[nodiscard]] ScriptValue serve(
        ScriptOperation operation, const ScriptValue::List& values, const MakeHandle& makeHandle) const;

    [[nodiscard]] const JavaScriptUtils& utils() const { return *utils_; }
    void report(const JSValue& exception) const { handler_(exception); }

private:
    [[nodiscard]] ScriptValue request(const ScriptValue::List& values) const;

    std::shared_ptr<const JavaScriptUtils> utils_;
    ExceptionHandler handler_;
};

} // namespace quor::toolkit
