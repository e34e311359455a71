// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/ScriptChannel.h"

#include <QtEndian>

#include <poll.h>
#include <sys/socket.h>

namespace quor::toolkit {

namespace {

// A script can nest requests without end, as in `utils.log({toString() { utils.log(this) }})`. It must not
// exhaust the stack of the application.
constexpr int maximumDepth = 64;

} // namespace

ScriptChannel::ScriptChannel(platform::FileDescriptor socket, Functions functions)
    : socket_(std::move(socket))
    , functionsOfOtherSide_(functions)
{
}

std::optional<ScriptValue> ScriptChannel::request(ScriptOperation operation, ScriptValue::List values)
{
    if (!send({operation, std::move(values)}))
        return std::nullopt;
    while (auto message = receive()) {
        if (message->operation == ScriptOperation::reply)
            return message->values.empty() ? ScriptValue() : std::move(message->values.front());
        if (!answer(*message))
            return std::nullopt;
    }
    return std::nullopt;
}

void ScriptChannel::serveUntilClosed()
{
    while (const auto message = receive()) {
        if (!answer(*message))
            return;
    }
}

bool ScriptChannel::answer(const ScriptMessage& message)
{
    if (message.operation == ScriptOperation::release) {
        for (size_t i = 0; i < message.values.size(); ++i)
            functions_.erase(numberAt(message.values, i).value_or(0));
        (void)serve_(message.operation, message.values);
        return true;
    }
    ScriptMessage reply;
    if (depth_ < maximumDepth) {
        ++depth_;
        reply.values.push_back(serve(message));
        --depth_;
    }
    return send(reply);
}

ScriptValue ScriptChannel::serve(const ScriptMessage& message)
{
    try {
        return message.operation == ScriptOperation::helper ? callFunction(message.values)
                                                            : serve_(message.operation, message.values);
    } catch (...) { // of a helper or a handler; the script gets undefined
        return {};
    }
}

ScriptValue ScriptChannel::callFunction(const ScriptValue::List& values)
{
    const auto found = functions_.find(numberAt(values, 0).value_or(0));
    if (found == functions_.end())
        return {};
    const auto function = found->second; // the script can forget it meanwhile
    return function(listAt(values, 1));
}

ScriptValue::Function ScriptChannel::functionOfOtherSide(quint32 number)
{
    struct Handle {
        ScriptChannel& channel;
        quint32 number;

        ~Handle() { channel.release(number); }
    };
    const std::shared_ptr<Handle> handle(new Handle{*this, number});
    return [handle](const ScriptValue::List& arguments) {
        return handle->channel
            .request(ScriptOperation::helper, {static_cast<double>(handle->number), arguments})
            .value_or(ScriptValue());
    };
}

bool ScriptChannel::send(const ScriptMessage& message)
{
    const auto numberOf = [this](const ScriptValue::Function& function) {
        functions_.emplace(++lastNumber_, function);
        return lastNumber_;
    };
    if (!released_.empty()) {
        const ScriptMessage release{ScriptOperation::release, std::exchange(released_, {})};
        if (!sendFrame(release.encoded(numberOf)))
            return false;
    }
    return sendFrame(message.encoded(numberOf));
}

bool ScriptChannel::sendFrame(const QByteArray& bytes)
{
    if (bytes.size() > ScriptMessage::maximumSize)
        return false;
    const auto number = qToLittleEndian(static_cast<quint32>(bytes.size()));
    const QByteArray size(reinterpret_cast<const char*>(&number), sizeof number);
    constexpr qsizetype largestCopy = qsizetype(64) << 10; // two parts can wake the other side twice
    return bytes.size() <= largestCopy ? sendBytes(size + bytes) : sendBytes(size) && sendBytes(bytes);
}

bool ScriptChannel::sendBytes(const QByteArray& bytes)
{
    bool hasWaited = false;
    for (qsizetype sent = 0; sent < bytes.size();) {
        const auto count = ::send(socket_.get(), bytes.constData() + sent,
            static_cast<size_t>(bytes.size() - sent), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (count >= 0)
            sent += count;
        else if (errno != EINTR && (errno != EAGAIN || !wait(POLLOUT, hasWaited)))
            return false;
    }
    return true;
}

std::optional<ScriptMessage> ScriptChannel::receive()
{
    quint32 size = 0;
    if (!receiveBytes(reinterpret_cast<char*>(&size), sizeof size))
        return std::nullopt;
    size = qFromLittleEndian(size);
    if (size > ScriptMessage::maximumSize)
        return std::nullopt;
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    if (!receiveBytes(bytes.data(), size))
        return std::nullopt;
    ScriptMessage::FunctionOfNumber functionOf;
    if (functionsOfOtherSide_ == Functions::accepted)
        functionOf = [this](quint32 number) { return functionOfOtherSide(number); };
    return ScriptMessage::decoded(bytes, functionOf);
}

bool ScriptChannel::receiveBytes(char* bytes, qint64 size)
{
    bool hasWaited = false;
    // Asked also if bytes are there already: otherwise a script that talks without a pause would never end.
    if (patience_ && !patience_(false))
        return false;
    for (qint64 received = 0; received < size;) {
        const auto count
            = recv(socket_.get(), bytes + received, static_cast<size_t>(size - received), MSG_DONTWAIT);
        if (count == 0)
            return false;
        if (count > 0)
            received += count;
        else if (errno != EINTR && (errno != EAGAIN || !wait(POLLIN, hasWaited)))
            return false;
    }
    return true;
}

// Returns after one wait at most. The caller then tries again.
bool ScriptChannel::wait(short events, bool& hasWaited)
{
    std::chrono::milliseconds longest(-1);
    if (patience_) {
        const auto patience = patience_(hasWaited);
        if (!patience)
            return false;
        longest = *patience;
    }
    pollfd socket{socket_.get(), events, 0};
    const int ready = poll(&socket, 1, static_cast<int>(longest.count()));
    hasWaited = ready == 0;
    return ready >= 0 || errno == EINTR;
}

} // namespace quor::toolkit
