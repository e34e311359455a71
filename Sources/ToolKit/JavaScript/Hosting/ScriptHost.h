// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Hosting/ForwardedUtils.h"

namespace quor::toolkit {

class ScriptEngine;

/// The work of `quor-plugin-host`: runs one script in an engine, and reads its values for the application.
class ScriptHost final {
public:
    explicit ScriptHost(platform::FileDescriptor socket);

    /// Serves until the application ends the connection.
    void serve() { channel_.serveUntilClosed(); }

private:
    [[nodiscard]] ScriptValue serve(ScriptOperation operation, const ScriptValue::List& values);
    [[nodiscard]] ScriptValue prepare(const ScriptValue::List& values);
    [[nodiscard]] ScriptValue run(const ScriptValue::List& values);
    [[nodiscard]] ScriptValue reference(const std::optional<JSValue>& value);

    ScriptChannel channel_;
    ValueTable values_;
    std::shared_ptr<ScriptEngine> engine_;
    std::shared_ptr<ForwardedUtils> utils_;
};

} // namespace quor::toolkit
