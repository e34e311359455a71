// SPDX-License-Identifier: MIT
#include "Platform/Linux/Monitors/X11EventMonitors.h"

#include "Platform/Linux/Monitors/LocalMonitors.h"
#include "Platform/Linux/Monitors/X11GlobalMonitors.h"

#include <utility>

namespace quor::platform {

X11EventMonitors::X11EventMonitors() = default;
X11EventMonitors::~X11EventMonitors() = default;

std::optional<EventMonitors::Token> X11EventMonitors::addGlobalMonitor(EventMask mask, GlobalHandler handler)
{
    if (!global_)
        global_ = std::make_unique<X11GlobalMonitors>();
    const auto token = nextToken();
    return global_->add(token, mask, std::move(handler)) ? std::optional(token) : std::nullopt;
}

std::optional<EventMonitors::Token> X11EventMonitors::addLocalMonitor(EventMask mask, LocalHandler handler)
{
    if (!local_)
        local_ = std::make_unique<LocalMonitors>();
    const auto token = nextToken();
    local_->add(token, mask, std::move(handler));
    return token;
}

void X11EventMonitors::removeMonitor(Token token)
{
    if (local_)
        local_->remove(token);
    if (global_)
        global_->remove(token);
}

} // namespace quor::platform
