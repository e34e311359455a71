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

/// Whether the caller is on the main thread: the application object's.
[[nodiscard]] bool isMainThread();

/// Base of a class that publishes events to targets which it holds weakly.
///
///     enum class FormEvent { internalNeedsRender, ... };
///     class Form : public EventProtocol<Form, FormEvent> { ... };
///
///     form.add(*this, &Presenter::needsRender, Form::Event::internalNeedsRender, 0.1);
///     void Presenter::needsRender(Form& sender, const std::any& payload);
///
/// A target needs no clean-up: it may end at any moment, also within a call (see `WeakReference` for
/// what can be a target; a publisher can). `EventType` is hashed by `std::hash`, which an enumeration
/// has. Everything is for the main thread, but `trigger`, and calls come on the main thread only.
template <class Publisher, class EventType>
class EventProtocol : public platform::Trackable {
public:
    using Event = EventType;
    using TargetActions = std::vector<std::shared_ptr<TargetAction<Publisher>>>;
    using Actions = std::unordered_map<Event, TargetActions>;

    [[nodiscard]] const Actions& actions() const { return actions_; }
    void setActions(Actions actions) { actions_.swap(actions); }

    /// Calls `action` on `target` at each `trigger` of `event`; with a `delay` above 0, in seconds,
    /// once for a burst, that long after its last. `action` is a member of the target, or anything
    /// called with (target, sender, payload). Added twice, a target is called twice.
    template <class Target, class Action>
    requires std::invocable<Action&, Target&, Publisher&, const std::any&>
    void add(Target& target, Action action, const Event& event, double delay = 0)
    {
        actions_[event].push_back(
            std::make_shared<TargetActionWrapper<Publisher, Target>>(target, std::move(action), delay));
    }

    /// Takes `target` out of all events. It must be told as the type it was added as. A delayed
    /// call that is pending still comes, if the target lives.
    template <class Target>
    void remove(const Target& target)
    {
        TargetActions removed;
        for (auto& [event, list] : actions_)
            moveOut(list, removed, isOf(target));
    }
    template <class Target>
    void remove(const Target& target, const Event& event)
    {
        TargetActions removed;
        if (const auto found = actions_.find(event); found != actions_.end())
            moveOut(found->second, removed, isOf(target));
    }

    /// Calls the targets of `event` in the order they were added; an empty payload means none. On
    /// the main thread before it returns, from any other thread (which must keep this object alive
    /// for the call) in a later turn of the main queue, if this object still lives then.
    ///
    /// Who is called is settled before the first call; whoever ends before its turn is left out, and
    /// the pass ends with this object.
    void trigger(const Event& event, std::any payload = {})
    {
        if (!isMainThread()) {
            platform::MainQueue::async([life = life(), this, event, payload = std::move(payload)]() mutable {
                if (!life.expired())
                    trigger(event, std::move(payload));
            });
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

    /// Entries of `event`, with those whose target has gone since its last `trigger`.
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

    // Entries end only when the lists are in order again: what an action holds may come back here as
    // it is let go of.
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
