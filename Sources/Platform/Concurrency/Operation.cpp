// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/Operation.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace quor::platform {

class Operation::Observers {
public:
    using Token = std::uint64_t;

    Token add(Key key, std::function<void()> changed)
    {
        const std::lock_guard lock(mutex_);
        observers_.emplace(++last_, Observer{key, std::move(changed)});
        return last_;
    }

    void remove(Token token)
    {
        Node removed; // destroyed after the lock is released, as the closure's captures may call this object
        const std::lock_guard lock(mutex_);
        removed = observers_.extract(token);
    }

    void notify(Key key) const
    {
        for (const auto token : tokens(key)) {
            // Looked up only now, as an earlier observer may have removed this one.
            if (const auto changed = closure(token))
                changed();
        }
    }

private:
    struct Observer {
        Key key;
        std::function<void()> changed;
    };
    using Map = std::map<Token, Observer>;
    using Node = Map::node_type;

    std::vector<Token> tokens(Key key) const
    {
        const std::lock_guard lock(mutex_);
        std::vector<Token> tokens;
        for (const auto& [token, observer] : observers_) {
            if (observer.key == key)
                tokens.push_back(token);
        }
        return tokens;
    }

    std::function<void()> closure(Token token) const
    {
        const std::lock_guard lock(mutex_);
        const auto found = observers_.find(token);
        return found == observers_.end() ? nullptr : found->second.changed;
    }

    mutable std::mutex mutex_;
    Map observers_; // in the order of registration
    Token last_ = 0;
};

Operation::Operation()
    : observers_(std::make_shared<Observers>())
{
}

Operation::~Operation() = default;

void Operation::start()
{
    if (isStarted_.exchange(true))
        return;
    if (!isCancelled()) {
        isExecuting_ = true;
        didChangeValueForKey(Key::isExecuting);
        main();
        isExecuting_ = false;
        didChangeValueForKey(Key::isExecuting);
    }
    isFinished_ = true;
    didChangeValueForKey(Key::isFinished);
}

void Operation::main() { }

void Operation::cancel()
{
    isCancelled_ = true;
}

bool Operation::isCancelled() const
{
    return isCancelled_;
}

bool Operation::isExecuting() const
{
    return isExecuting_;
}

bool Operation::isFinished() const
{
    return isFinished_;
}

bool Operation::isAsynchronous() const
{
    return false;
}

Subscription Operation::observe(Key key, std::function<void()> changed)
{
    const auto token = observers_->add(key, std::move(changed));
    return Subscription([observers = std::weak_ptr(observers_), token] {
        if (const auto alive = observers.lock())
            alive->remove(token);
    });
}

void Operation::didChangeValueForKey(Key key)
{
    const auto observers = observers_; // an observer may release the last reference to this operation
    observers->notify(key);
}

} // namespace quor::platform
