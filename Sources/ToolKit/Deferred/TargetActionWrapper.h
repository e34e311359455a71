// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit/Deferred/DelayedAction.h"
#include "ToolKit/Deferred/TargetAction.h"

#include <QString>

#include <functional>
#include <optional>
#include <typeinfo>
#include <utility>

namespace quor::toolkit {

/// The readable name of a type, as in "quor::Presenter".
[[nodiscard]] QString typeDescription(const std::type_info& type);

/// The entry of a target of one type. With a `delay` above 0, in seconds, the target is called once for a
/// burst of calls: with the last sender and payload, `delay` after the last call, and only if target and
/// sender both exist then. Main thread only.
template <class Publisher, class Target>
class TargetActionWrapper final : public TargetAction<Publisher> {
public:
    using Action = std::function<void(Target&, Publisher&, const std::any&)>;

    TargetActionWrapper(Target& target, Action action, double delay)
        : target_(target)
        , action_(std::move(action))
    {
        if (delay > 0)
            delayedAction_.emplace(delay);
    }

    [[nodiscard]] bool isAlive() const override { return target_.lock() != nullptr; }
    [[nodiscard]] bool holds(const Target& target) const
    {
        const auto held = target_.lock();
        return held && &*held == &target;
    }

    void perform(Publisher& sender, const std::any& payload) override
    {
        if (!delayedAction_) {
            call(target_, action_, sender, payload);
            return;
        }
        // Copies, since the pending call still takes place after this entry has been removed and deleted.
        delayedAction_->run(platform::whileAlive<platform::Trackable>(
            sender, [target = target_, action = action_, sender = &sender, payload] {
                call(target, action, *sender, payload);
            }));
    }

    /// The name of the target's type, or "nil" after the target has ended.
    [[nodiscard]] QString debugDescription() const
    {
        return isAlive() ? typeDescription(typeid(Target)) : QStringLiteral("nil");
    }

private:
    static void call(const platform::WeakReference<Target>& reference, const Action& action,
        Publisher& sender, const std::any& payload)
    {
        if (const auto target = reference.lock(); target && action)
            action(*target, sender, payload);
    }

    platform::WeakReference<Target> target_;
    Action action_;
    std::optional<DelayedAction> delayedAction_;
};

} // namespace quor::toolkit
