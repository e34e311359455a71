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

/// What `CalendarStore` and `ReminderStore` have in common: asking for access, notices of changes, and the
/// queue that reads and writes run on, one at a time and in order.
///
/// There is no `EventStore` before `requestAccess`: until then everything that needs one does nothing, or
/// answers with nothing. Refused access looks the same. Make, observe and end a store on the main thread;
/// the rest may be called on any thread.
///
/// A `QFuture` never needs the main thread to become ready, so even that may wait for one; better, go on
/// with `.then(context, ...)`.
class EventStoreClient : public platform::Trackable {
public:
    /// Ends all observations: no handler is called any more.
    void stopObserving();

    /// Calls `handler` on the main queue once for each burst of changes, whoever made them, as soon as
    /// `debounceInterval` seconds have passed without a further one. Each call adds an observation.
    void startObserving(double debounceInterval, std::function<void()> handler);

    /// Looks at all folders anew, on the queue.
    void refreshSources();

    /// Neither granted nor refused yet. Asks nobody.
    [[nodiscard]] bool isAccessUndetermined() const;
    [[nodiscard]] bool hasFullAccess() const;

    /// Makes a new `EventStore`, in place of an earlier one, and answers on the main queue whether access
    /// is granted. What was read from the earlier one stays tied to it, and what was saved there without a
    /// commit is lost.
    void requestAccess(std::function<void(bool granted)> completion);
    /// The same, to wait for.
    QFuture<bool> requestAccess();

protected:
    EventStoreClient(EntityType entityType, QByteArray queueLabel, EventStoreOptions options);
    /// Waits for the blocks on the queue.
    ~EventStoreClient();

    /// None before access was requested. Whoever uses it holds it: it may be replaced at any moment.
    [[nodiscard]] std::shared_ptr<EventStore> eventStore() const;

    /// What weak references to this object are made of: gone as it ends. Its value is the `EventStore`.
    using Holder = SynchronizedAccess<std::shared_ptr<EventStore>>;
    [[nodiscard]] std::weak_ptr<Holder> holder() const { return holder_; }
    /// What the holder has; none if it has gone.
    [[nodiscard]] static std::shared_ptr<EventStore> eventStore(const std::weak_ptr<Holder>& holder);

    [[nodiscard]] platform::DispatchQueue& accessQueue() { return accessQueue_; }

private:
    class Observation;

    void request(EventStore::AccessCompletion completion);

    const EntityType entityType_;
    const EventStoreOptions options_;
    std::shared_ptr<Holder> holder_ = std::make_shared<Holder>();
    std::optional<EventStoreChanges> changes_; ///< from the first observation on
    std::vector<std::shared_ptr<Observation>> cancellables_;
    platform::DispatchQueue accessQueue_;
};

} // namespace quor::toolkit
