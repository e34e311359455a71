// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/MainQueue.h"
#include "ToolKit/Deferred/TargetActionWrapper.h"

#include <algorithm>
#include <any>
#include <concepts>
#include <iterator>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quor::toolkit {

/// Returns whether the calling thread is the main thread: the thread of the application object
/// (`QCoreApplication`). Returns true on every thread while no application object exists.
[[nodiscard]] bool isMainThread();

/// Base class of a class that publishes events to targets, which it holds weakly.
///
///     enum class FormEvent { internalNeedsRender, ... };
///     class Form : public EventProtocol<Form, FormEvent> { ... };
///
///     form.add(*this, &Presenter::needsRender, Form::Event::internalNeedsRender, 0.1);
///     void Presenter::needsRender(Form& sender, const std::any& payload);
///
/// A target can be destroyed at any moment, also during a call, without being removed first. Any object that
/// a `WeakReference` can hold can be a target, including publishers. `EventType` must have a `std::hash`;
/// every enumeration has one. Main thread only, except for `trigger`. Targets are called on the main thread
/// only.
template <class Publisher, class EventType>
class EventProtocol : public platform::Trackable {
public:
    using Event = EventType;
    using TargetActions = std::vector<std::shared_ptr<TargetAction<Publisher>>>;
    using Actions = std::unordered_map<Event, TargetActions>;

    /// The entries of each event, in the order in which they were added.
    [[nodiscard]] const Actions& actions() const { return actions_; }
    /// Replaces all entries of all events. Pending delayed calls of the replaced entries still take place.
    void setActions(Actions actions) { actions_.swap(actions); }

    /// From now on each `trigger` of `event` calls `action` on `target`. `action` is a member function of the
    /// target, or any closure that takes (target, sender, payload). A target that is added twice is called
    /// twice.
    ///
    /// `delay` is in seconds. With a positive `delay`, a trigger does not call the target at once, but
    /// `delay` later. Each further trigger before that restarts the delay, so there is one call, with the
    /// payload of the last trigger. It takes place only if the target and this object still exist. 0, a
    /// negative number and NaN mean no delay.
    template <class Target, class Action>
    requires std::invocable<Action&, Target&, Publisher&, const std::any&>
    void add(Target& target, Action action, const Event& event, double delay = 0)
    {
        actions_[event].push_back(
            std::make_shared<TargetActionWrapper<Publisher, Target>>(target, std::move(action), delay));
    }

    /// Removes `target` from all events. The static type of `target` must be the one with which it was added.
    /// Does not cancel a pending delayed call: it takes place if the target still exists.
    template <class Target>
    void remove(const Target& target)
    {
        TargetActions removed;
        for (auto& [event, list] : actions_)
            moveOut(list, removed, isOf(target));
    }
    /// The same, for one event only.
    template <class Target>
    void remove(const Target& target, const Event& event)
    {
        TargetActions removed;
        if (const auto found = actions_.find(event); found != actions_.end())
            moveOut(found->second, removed, isOf(target));
    }

    /// Calls the targets of `event` in the order in which they were added. An empty `payload` means no
    /// payload. Any thread.
    ///
    /// On the main thread, targets without a delay are called before this returns. On another thread, the
    /// calls are queued on the main queue, and dropped if this object is destroyed before their turn. The
    /// caller must keep this object alive until `trigger` returns on that thread.
    ///
    /// The list of targets is fixed when the calls begin: a target that is added during the calls is not
    /// called, and a target that is removed during the calls is still called. A target that is destroyed
    /// before its turn is skipped. A target may destroy this object; the remaining targets are then not
    /// called.
    void trigger(const Event& event, std::any payload = {})
    {
        if (!isMainThread()) {
            platform::MainQueue::async(
                platform::whileAlive(*this, [this, event, payload = std::move(payload)]() mutable {
                    trigger(event, std::move(payload));
                }));
            return;
        }
        const auto found = actions_.find(event);
        if (found == actions_.end())
            return;
        TargetActions dead;
        moveOut(found->second, dead, [](const auto& entry) { return !entry->isAlive(); });
        const TargetActions pass = found->second;
        const auto alive = life();
        for (const auto& entry : pass) {
            if (alive.expired())
                return;
            entry->perform(static_cast<Publisher&>(*this), payload);
        }
    }

    /// The number of entries of `event`; 0 for an event without entries. An entry whose target was destroyed
    /// is counted until the next `trigger` of `event`.
    [[nodiscard]] std::size_t numberOfTargets(const Event& event) const
    {
        const auto found = actions_.find(event);
        return found == actions_.end() ? 0 : found->second.size();
    }

protected:
    EventProtocol() = default;
    ~EventProtocol() { setActions({}); }

private:
    template <class Target>
    static auto isOf(const Target& target)
    {
        return [&target](const auto& entry) {
            const auto wrapper = dynamic_cast<const TargetActionWrapper<Publisher, Target>*>(entry.get());
            return wrapper && wrapper->holds(target);
        };
    }

    // Moves entries to `removed` instead of deleting them, since deleting an action may delete an object that
    // removes targets from these same lists. The caller deletes `removed` when the lists are consistent
    // again.
    template <class Condition>
    static void moveOut(TargetActions& list, TargetActions& removed, Condition condition)
    {
        const auto first = std::stable_partition(
            list.begin(), list.end(), [&](const auto& entry) { return !condition(entry); });
        std::move(first, list.end(), std::back_inserter(removed));
        list.erase(first, list.end());
    }

    Actions actions_;
};

} // namespace quor::toolkit
