// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"
#include "ToolKit/JavaScript/Hosting/ScriptMessage.h"

#include <chrono>
#include <map>

namespace quor::toolkit {

/// One end of the connection between an application and the process that runs its script. Each side sends
/// requests and waits for the reply. While it waits it serves requests of the other side, so requests can be
/// nested: a script calls a helper, and the helper calls a function of the script.
///
/// One thread at a time.
class ScriptChannel final {
public:
    using Serve = std::function<ScriptValue(ScriptOperation operation, const ScriptValue::List& values)>;
    /// Called before each time that the channel waits; `hasWaited` says that the last such time has passed
    /// without any byte from the other side. Returns how long to wait until the next call; `nullopt` gives up
    /// the request.
    using Patience = std::function<std::optional<std::chrono::milliseconds>(bool hasWaited)>;
    /// Whether messages of the other side can contain functions.
    enum class Functions { refused, accepted };

    ScriptChannel(platform::FileDescriptor socket, Functions functions);
    ScriptChannel(const ScriptChannel&) = delete;
    ScriptChannel& operator=(const ScriptChannel&) = delete;

    /// Must be set before the first request.
    void setServe(Serve serve) { serve_ = std::move(serve); }
    /// Without it, the channel waits until the other side has ended.
    void setPatience(Patience patience) { patience_ = std::move(patience); }

    /// Sends a request and returns the value of its reply. Returns `nullopt` if the other side has ended or
    /// sends nonsense, or if the patience is over. The channel is of no use after that.
    [[nodiscard]] std::optional<ScriptValue> request(ScriptOperation operation, ScriptValue::List values);
    /// Serves requests until the other side has ended.
    void serveUntilClosed();
    /// Notifies the other side, with the next message, that this side has forgotten one of its numbers.
    void release(quint32 number) { released_.emplace_back(static_cast<double>(number)); }

private:
    [[nodiscard]] bool send(const ScriptMessage& message);
    [[nodiscard]] bool sendFrame(const QByteArray& bytes);
    [[nodiscard]] bool sendBytes(const QByteArray& bytes);
    [[nodiscard]] std::optional<ScriptMessage> receive();
    [[nodiscard]] bool receiveBytes(char* bytes, qint64 size);
    [[nodiscard]] bool wait(short events, bool& hasWaited);
    [[nodiscard]] bool answer(const ScriptMessage& message);
    [[nodiscard]] ScriptValue serve(const ScriptMessage& message);
    [[nodiscard]] ScriptValue callFunction(const ScriptValue::List& values);
    [[nodiscard]] ScriptValue::Function functionOfOtherSide(quint32 number);

    platform::FileDescriptor socket_;
    Functions functionsOfOtherSide_;
    Serve serve_;
    Patience patience_;
    std::map<quint32, ScriptValue::Function> functions_; ///< of this side, by their numbers
    quint32 lastNumber_ = 0;
    ScriptValue::List released_;
    int depth_ = 0; ///< of nested requests
};

} // namespace quor::toolkit
