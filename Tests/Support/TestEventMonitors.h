// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/EventMonitors.h"

#include <map>
#include <utility>

namespace quor::test {

/// Monitors of input that a test invents. It reaches the monitors, but no window.
class TestEventMonitors final : public platform::EventMonitors {
public:
    [[nodiscard]] std::optional<Token> addGlobalMonitor(
        platform::EventMask mask, GlobalHandler handler) override
    {
        return add(global, mask, std::move(handler));
    }
    [[nodiscard]] std::optional<Token> addLocalMonitor(
        platform::EventMask mask, LocalHandler handler) override
    {
        return add(local, mask, std::move(handler));
    }
    void removeMonitor(Token token) override
    {
        global.erase(token);
        local.erase(token);
    }

    /// Passes an event for another application to the global monitors.
    void fireGlobal(const platform::InputEvent& event)
    {
        const auto then = global;
        for (const auto& [token, monitor] : then) {
            if (global.contains(token) && (monitor.first & eventMask(event.type)))
                monitor.second(event);
        }
    }

    /// Passes an event for this application to the local monitors. Returns false if one swallows it.
    bool fireLocal(platform::InputEvent event)
    {
        const auto then = local;
        for (const auto& [token, monitor] : then) {
            if (!local.contains(token) || !(monitor.first & eventMask(event.type)))
                continue;
            auto next = monitor.second(event);
            if (!next)
                return false;
            event = *std::move(next);
        }
        return true;
    }

    std::map<Token, std::pair<platform::EventMask, GlobalHandler>> global;
    std::map<Token, std::pair<platform::EventMask, LocalHandler>> local;

private:
    template <class Monitors, class Handler>
    std::optional<Token> add(Monitors& monitors, platform::EventMask mask, Handler handler)
    {
        const Token token{++lastToken_};
        monitors[token] = {mask, std::move(handler)};
        return token;
    }

    std::uint64_t lastToken_ = 0;
};

} // namespace quor::test
