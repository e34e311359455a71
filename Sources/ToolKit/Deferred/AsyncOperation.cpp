// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/AsyncOperation.h"

#include <utility>

namespace quor::toolkit {

AsyncOperation::AsyncOperation()
    : lockQueue_(QByteArrayLiteral("com.quor-app.asyncop"))
{
}

platform::Callback<void()> AsyncOperation::finishHandler() const
{
    return finishHandler_;
}

void AsyncOperation::setFinishHandler(platform::Callback<void()> finishHandler)
{
    finishHandler_ = std::move(finishHandler);
}

void AsyncOperation::start()
{
    if (isStarted_.exchange(true))
        return;
    if (isCancelled()) {
        end();
        return;
    }
    set(isExecuting_, Key::isExecuting, true);
    main();
}

void AsyncOperation::main()
{
    if (isCancelled())
        finish(); // cancelled after `start` asked; without work, nothing else would end the operation
    else
        work();
}

void AsyncOperation::work() { }

void AsyncOperation::finish()
{
    end();
}

void AsyncOperation::end()
{
    if (isEnding_.exchange(true))
        return;
    const auto self = weak_from_this().lock(); // the handler may release this operation
    finishHandler()();
    set(isExecuting_, Key::isExecuting, false);
    set(isFinished_, Key::isFinished, true);
}

void AsyncOperation::set(bool& flag, Key key, bool value)
{
    if (lockQueue_.sync([&] { return std::exchange(flag, value); }) != value)
        didChangeValueForKey(key);
}

bool AsyncOperation::isExecuting() const
{
    return lockQueue_.sync([this] { return isExecuting_; });
}

bool AsyncOperation::isFinished() const
{
    return lockQueue_.sync([this] { return isFinished_; });
}

} // namespace quor::toolkit
