// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"
#include "Platform/Lifetime/Trackable.h"
#include "ToolKit/Calendar/Stores/EventStore.h"
#include "ToolKit/Calendar/Stores/EventStoreChanges.h"
#include "ToolKit/Data/SynchronizedAccess.h"

#include <QFuture>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// Base of `CalendarStore` and `ReminderStore`: access, reports of changes, and a queue on which reads and
/// writes run one at a time and in order.
///
/// There is no `EventStore` before `requestAccess`. Until then, and if access is refused, reads return
/// nothing and writes have no effect. Create, observe and destroy a store on the main thread. All other
/// functions may be called on any thread.
///
/// A `QFuture` becomes ready without the main thread, so the main thread may wait for it. Prefer
/// `.then(context, ...)`, which does not block.
class EventStoreClient : public platform::Trackable {
public:
    /// Ends all observations. Their handlers are not called any more, even if a change was already noticed.
    void stopObserving();

    /// Calls `handler` on the main queue once for each burst of changes, by this process or any other, when
    /// `debounceInterval` seconds have passed without a further change. Each call adds another observation,
    /// which lasts until `stopObserving` or the end of this object. Needs no access.
    void startObserving(double debounceInterval, std::function<void()> handler);

    /// Calls `EventStore::refreshSourcesIfNecessary` on the queue. Has no effect before `requestAccess`.
    void refreshSources();

    /// Whether access is neither granted nor refused yet. Does not ask the user.
    [[nodiscard]] bool isAccessUndetermined() const;
    [[nodiscard]] bool hasFullAccess() const;

    /// Creates a new `EventStore`, which replaces an earlier one, and calls `completion` on the main queue.
    /// Objects that were read from the earlier store keep their values. Changes that were saved there and not
    /// committed are lost.
    void requestAccess(std::function<void(bool granted)> completion);
    /// The same, as a future.
    QFuture<bool> requestAccess();

protected:
    EventStoreClient(EntityType entityType, QByteArray queueLabel, EventStoreOptions options);
    /// Waits for the blocks on the queue.
    ~EventStoreClient();

    /// Null before access was requested. Keep the result while you use it, since the store may be replaced at
    /// any moment.
    [[nodiscard]] std::shared_ptr<EventStore> eventStore() const;

    /// Owns the `EventStore`. Blocks on the queue refer to it weakly, since it ends with this object.
    using Holder = SynchronizedAccess<std::shared_ptr<EventStore>>;
    [[nodiscard]] std::weak_ptr<Holder> holder() const { return holder_; }
    /// Null if the holder has ended.
    [[nodiscard]] static std::shared_ptr<EventStore> eventStore(const std::weak_ptr<Holder>& holder);

    [[nodiscard]] platform::DispatchQueue& accessQueue() { return accessQueue_; }

private:
    class Observation;

    void request(EventStore::AccessCompletion completion);

    const EntityType entityType_;
    const EventStoreOptions options_;
    std::shared_ptr<Holder> holder_ = std::make_shared<Holder>();
    std::optional<EventStoreChanges> changes_; ///< exists from the first observation on
    std::vector<std::shared_ptr<Observation>> cancellables_;
    platform::DispatchQueue accessQueue_;
};

} // namespace quor::toolkit
