// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/EventMonitors.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace quor::platform {

/// Monitors of one kind, in the order of their installation. Handlers may change the list that calls
/// them, and end it.
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

    /// Calls `visit` with each handler for the type, until it answers false. The list may be gone
    /// afterwards.
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
