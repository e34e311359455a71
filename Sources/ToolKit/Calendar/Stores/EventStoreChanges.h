// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"
#include "ToolKit/Calendar/Stores/EventStoreOptions.h"

#include <functional>
#include <memory>

namespace quor::toolkit {

/// Notices of changes to the calendars of a root folder, whoever made them: a store of this process when it
/// commits, another process, a synchroniser. Needs no `EventStore`. Changes that arrive together give one
/// notice. The root is made where it is missing. A machine that can watch no more folders gives no notices.
///
///     EventStoreChanges changes(options);
///     subscription_ = changes.subscribe([] { ... });
class EventStoreChanges final {
public:
    explicit EventStoreChanges(const EventStoreOptions& options = {});
    /// Ends all subscriptions; not from within a handler.
    ~EventStoreChanges();
    EventStoreChanges(const EventStoreChanges&) = delete;
    EventStoreChanges& operator=(const EventStoreChanges&) = delete;

    /// Calls `changed` after each change that is made from now on, on a thread of this object's own, until
    /// the subscription ends. Ending it waits for a call that is under way on that thread, unless it is
    /// ended in that call. Any thread. The subscription may outlive this object.
    [[nodiscard]] platform::Subscription subscribe(std::function<void()> changed);

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace quor::toolkit
