// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/EventMonitors.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace quor::platform {

/// The monitors of one kind, in the order in which they were added. A handler may change the list, and
/// destroy it, while the list is visited.
template <class Handler>
class MonitorList final {
public:
    using Token = EventMonitors::Token;

    MonitorList() = default;
    ~MonitorList()
    {
        for (const auto& monitor : monitors_)
            monitor->installed = false;
    }
    MonitorList(const MonitorList&) = delete;
    MonitorList& operator=(const MonitorList&) = delete;

    [[nodiscard]] bool isEmpty() const { return monitors_.empty(); }

    void add(Token token, EventMask mask, Handler handler)
    {
        monitors_.push_back(std::make_shared<Monitor>(Monitor{token, mask, std::move(handler)}));
    }

    void remove(Token token)
    {
        const auto found = std::ranges::find(monitors_, token, [](const auto& each) { return each->token; });
        if (found == monitors_.end())
            return;
        (*found)->installed = false;
        monitors_.erase(found);
    }

    /// Calls `visit` with each handler for `type`, until it returns false. Monitors that are added meanwhile
    /// are not visited. A handler may have destroyed the list when this returns.
    template <class Visit>
    void visit(EventType type, Visit visit) const
    {
        const auto monitors = monitors_;
        for (const auto& monitor : monitors) {
            const bool wanted = monitor->installed && monitor->handler && (monitor->mask & eventMask(type));
            if (wanted && !visit(monitor->handler))
                return;
        }
    }

private:
    struct Monitor {
        Token token;
        EventMask mask;
        Handler handler;
        bool installed = true;
    };

    std::vector<std::shared_ptr<Monitor>> monitors_;
};

} // namespace quor::platform
