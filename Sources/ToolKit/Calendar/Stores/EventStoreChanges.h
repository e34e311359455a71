// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"
#include "ToolKit/Calendar/Stores/EventStoreOptions.h"

#include <functional>
#include <memory>

namespace quor::toolkit {

/// Reports changes to the calendars of a root folder, by this process or any other. Needs no `EventStore`.
/// Changes that arrive together are reported once. Makes the root if it is missing. Folders beyond the
/// system's limit of watched folders are not watched: their changes are not reported.
///
///     EventStoreChanges changes(options);
///     subscription_ = changes.subscribe([] { ... });
class EventStoreChanges final {
public:
    explicit EventStoreChanges(const EventStoreOptions& options = {});
    /// Ends all subscriptions. Must not be called from within a handler.
    ~EventStoreChanges();
    EventStoreChanges(const EventStoreChanges&) = delete;
    EventStoreChanges& operator=(const EventStoreChanges&) = delete;

    /// Calls `changed` after each later change, on a thread that this object owns, until the subscription
    /// ends. The end waits for a running call, except when it comes from within that call. Any thread. The
    /// subscription may outlive this object.
    [[nodiscard]] platform::Subscription subscribe(std::function<void()> changed);

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace quor::toolkit
