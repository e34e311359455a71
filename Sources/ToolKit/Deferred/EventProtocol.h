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

/// Whether the caller is on the main thread, which is the thread of the application object. True if there is
/// no application object.
[[nodiscard]] bool isMainThread();

/// Base class of a class that publishes events to targets, which it holds weakly.
///
///     enum class FormEvent { internalNeedsRender, ... };
///     class Form : public EventProtocol<Form, FormEvent> { ... };
///
///     form.add(*this, &Presenter::needsRender, Form::Event::internalNeedsRender, 0.1);
///     void Presenter::needsRender(Form& sender, const std::any& payload);
///
/// A target needs no clean-up: it may end at any moment, also during a call. Any object that a
/// `WeakReference` can hold can be a target, including publishers. `EventType` is hashed by `std::hash`, as
/// an enumeration is. Main thread only, except for `trigger`. Targets are called on the main thread only.
template <class Publisher, class EventType>
class EventProtocol : public platform::Trackable {
public:
    using Event = EventType;
    using TargetActions = std::vector<std::shared_ptr<TargetAction<Publisher>>>;
    using Actions = std::unordered_map<Event, TargetActions>;

    /// The entries of each event, in the order in which they were added.
    [[nodiscard]] const Actions& actions() const { return actions_; }
    void setActions(Actions actions) { actions_.swap(actions); }

    /// From now on each `trigger` of `event` calls `action` on `target`. With a `delay` above 0, in seconds,
    /// a burst of triggers calls it once, `delay` after the last. `action` is a member function of the
    /// target, or any closure that takes (target, sender, payload). A target that is added twice is called
    /// twice.
    template <class Target, class Action>
    requires std::invocable<Action&, Target&, Publisher&, const std::any&>
    void add(Target& target, Action action, const Event& event, double delay = 0)
    {
        actions_[event].push_back(
            std::make_shared<TargetActionWrapper<Publisher, Target>>(target, std::move(action), delay));
    }

    /// Removes `target` from all events. The static type of `target` must be the one with which it was added.
    /// A delayed call that is pending still takes place if the target exists then.
    template <class Target>
    void remove(const Target& target)
    {
        TargetActions removed;
        for (auto& [event, list] : actions_)
            moveOut(list, removed, isOf(target));
    }
    /// Removes `target` from one event only.
    template <class Target>
    void remove(const Target& target, const Event& event)
    {
        TargetActions removed;
        if (const auto found = actions_.find(event); found != actions_.end())
            moveOut(found->second, removed, isOf(target));
    }

    /// Calls the targets of `event` in the order in which they were added; an empty `payload` means no
    /// payload. Any thread. On the main thread the targets are called before this returns. On another thread
    /// they are called in a later turn of the main queue, if this object exists then; the caller must keep it
    /// alive during this call.
    ///
    /// Targets that are added during the calls are not called, targets that end before their turn are left
    /// out, and the calls stop if this object ends.
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

    /// The number of entries of `event`. Entries whose target has ended count until the next `trigger` of
    /// `event`.
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
