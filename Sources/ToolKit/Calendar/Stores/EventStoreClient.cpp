// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/EventStoreClient.h"

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Lifetime/Subscription.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit/Calendar/Stores/AwaitedAnswer.h"
#include "ToolKit/Deferred/DelayedAction.h"

#include <utility>

namespace quor::toolkit {

using platform::MainQueue;
using platform::whileAlive;

/// One call of `startObserving`. Main thread only. Notices arrive on another thread, and are passed on to the
/// main one.
class EventStoreClient::Observation final : public std::enable_shared_from_this<Observation> {
public:
    Observation(double debounceInterval, std::function<void()> handler)
        : debounce_(debounceInterval)
        , handler_(std::move(handler))
    {
    }
    ~Observation() { debounce_.cancel(); }
    Observation(const Observation&) = delete;
    Observation& operator=(const Observation&) = delete;

    void start(EventStoreChanges& changes)
    {
        subscription_ = changes.subscribe(
            [debounce = whileAlive(*this, [this] { debounce(); })] { MainQueue::async(debounce); });
    }

private:
    void debounce()
    {
        debounce_.run([deliver = whileAlive(*this, [this] { handler_(); })] { MainQueue::async(deliver); });
    }

    DelayedAction debounce_;
    platform::Callback<void()> handler_;
    platform::Subscription subscription_;
};

EventStoreClient::EventStoreClient(EntityType entityType, QByteArray queueLabel, EventStoreOptions options)
    : entityType_(entityType)
    , options_(std::move(options))
    , accessQueue_(std::move(queueLabel))
{
}

EventStoreClient::~EventStoreClient()
{
    stopObserving();
    holder_.reset(); // blocks that are still on the queue find no store
}

void EventStoreClient::stopObserving()
{
    cancellables_.clear();
}

void EventStoreClient::startObserving(double debounceInterval, std::function<void()> handler)
{
    if (!changes_)
        changes_.emplace(options_);
    cancellables_.push_back(std::make_shared<Observation>(debounceInterval, std::move(handler)));
    cancellables_.back()->start(*changes_);
}

void EventStoreClient::refreshSources()
{
    accessQueue_.async([holder = holder()] {
        if (const auto store = eventStore(holder))
            store->refreshSourcesIfNecessary();
    });
}

bool EventStoreClient::isAccessUndetermined() const
{
    return EventStore::authorizationStatus(entityType_, options_) == AuthorizationStatus::notDetermined;
}

bool EventStoreClient::hasFullAccess() const
{
    return EventStore::authorizationStatus(entityType_, options_) == AuthorizationStatus::fullAccess;
}

void EventStoreClient::requestAccess(std::function<void(bool granted)> completion)
{
    // The completion is moved, so that what it captures ends on the main thread.
    request([completion = std::move(completion)](bool granted, const EventStore::Result&) mutable {
        MainQueue::async([completion = std::move(completion), granted] {
            if (completion)
                completion(granted);
        });
    });
}

QFuture<bool> EventStoreClient::requestAccess()
{
    return awaitedAnswer<bool>([this](auto resume) {
        request([resume](bool granted, const EventStore::Result&) { resume(granted); });
    });
}

void EventStoreClient::request(EventStore::AccessCompletion completion)
{
    const auto store = std::make_shared<EventStore>(options_);
    // The earlier store may wait for its completions when it ends, so it must not end on the holder's queue.
    const auto earlier = holder_->sync([&](auto& current) { return std::exchange(current, store); });
    if (entityType_ == EntityType::event)
        store->requestFullAccessToEvents(std::move(completion));
    else
        store->requestFullAccessToReminders(std::move(completion));
}

std::shared_ptr<EventStore> EventStoreClient::eventStore() const
{
    return eventStore(holder_);
}

std::shared_ptr<EventStore> EventStoreClient::eventStore(const std::weak_ptr<Holder>& holder)
{
    const auto alive = holder.lock();
    return alive ? alive->sync([](const auto& current) { return current; }) : nullptr;
}

} // namespace quor::toolkit
