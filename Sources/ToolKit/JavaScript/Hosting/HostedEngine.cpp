// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/HostedEngine.h"

#include "ToolKit/JavaScript/Engine/ScriptEngine.h"
#include "ToolKit/JavaScript/Hosting/HostedValue.h"

#include <sys/wait.h>

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;
constexpr auto startLimit = 60s; // an empty engine needs some 50 ms; a busy machine takes its time
constexpr auto startInterval = 100ms;

} // namespace

HostedEngine::HostedEngine(ScriptLimits limits, std::shared_ptr<const JavaScriptUtils> utils,
    HostCallServer::ExceptionHandler handler)
    : server_(std::move(utils), std::move(handler))
    , limits_(limits)
    , process_(HostProcess::start(failure_))
{
    if (!process_)
        return;
    channel_ = std::make_unique<ScriptChannel>(process_->takeSocket(), ScriptChannel::Functions::refused);
    channel_->setServe([this](ScriptOperation operation, const ScriptValue::List& values) {
        return server_.serve(
            operation, values, [this](const ScriptValue& reference) { return handle(reference); });
    });
}

std::optional<JSValue> HostedEngine::run(
    const QString& script, const ScriptValue::Map& parameters, const ScriptValue::Map& helpers)
{
    if (process_)
        prepare();
    return requestHandle(ScriptOperation::run, {script, parameters, helpers});
}

// The limits do not apply to the start of the process.
void HostedEngine::prepare()
{
    channel_->setPatience([end = std::chrono::steady_clock::now() + startLimit](bool) {
        return std::chrono::steady_clock::now() < end ? std::optional(startInterval) : std::nullopt;
    });
    ScriptValue::Map texts;
    for (const auto& [key, text] : server_.utils().localization().asKeyValueRange())
        texts.emplace(key, text);
    if (!channel_->request(ScriptOperation::prepare, {std::move(texts)})) {
        failure_ = reasonOfEnd();
        return;
    }
    watch_.emplace(limits_, *process_);
    channel_->setPatience([this](bool hasWaited) { return watch_->check(hasWaited); });
}

std::optional<ScriptValue> HostedEngine::request(ScriptOperation operation, ScriptValue::List values)
{
    std::optional<ScriptValue> reply;
    if (failure_.isEmpty()) {
        if (requests_++ == 0)
            watch_->begin();
        reply = channel_->request(operation, std::move(values));
        --requests_;
        if (!reply && failure_.isEmpty())
            failure_ = reasonOfEnd();
    }
    // Not within a nested request: the handler could be the one that has asked.
    if (requests_ == 0 && !failure_.isEmpty() && !std::exchange(isReported_, true)) {
        if (const auto engine = ScriptEngine::create())
            server_.report(engine->error(failure_));
    }
    return reply;
}

std::optional<JSValue> HostedEngine::requestHandle(ScriptOperation operation, ScriptValue::List values)
{
    const auto reply = request(operation, std::move(values));
    const auto* reference = reply ? reply->as<ScriptValue::List>() : nullptr;
    return reference && !reference->empty() ? handle(reference->front()) : std::nullopt;
}

QString HostedEngine::reasonOfEnd()
{
    const int status = process_->end();
    if (watch_ && watch_->excess() == LimitWatch::Excess::time)
        return u"The script exceeded its limit of processor time."_s;
    if (watch_ && watch_->excess() == LimitWatch::Excess::memory)
        return u"The script exceeded its limit of memory."_s;
    if (WIFEXITED(status) && WEXITSTATUS(status) == HostProcess::wrongVersion)
        return u"The program quor-plugin-host belongs to another version of the kit."_s;
    const QString how = WIFSIGNALED(status) ? u"signal %1"_s.arg(WTERMSIG(status))
                                            : u"exit status %1"_s.arg(WEXITSTATUS(status));
    return u"The script's process ended unexpectedly (%1), for instance because there was no memory left."_s
        .arg(how);
}

std::optional<JSValue> HostedEngine::handle(const ScriptValue& reference)
{
    const auto* parts = reference.as<ScriptValue::List>();
    const auto number = parts ? numberAt(*parts, 0) : std::nullopt;
    const auto kind = parts ? numberAt(*parts, 1) : std::nullopt;
    const bool* truth = parts && parts->size() == 3 ? parts->at(2).as<bool>() : nullptr;
    if (!number || !kind || *kind > static_cast<quint32>(ValueReference::Kind::other) || !truth)
        return std::nullopt;
    return JSValue(std::make_shared<HostedValue>(
        shared_from_this(), *number, static_cast<ValueReference::Kind>(*kind), *truth));
}

} // namespace quor::toolkit
