// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/EventMonitors.h"

#include <cstdint>
#include <memory>

namespace quor::platform {

class LocalMonitors;
class X11GlobalMonitors;

/// Monitors of mouse buttons and, if local, of the keyboard: local ones by a filter on Qt's events, global
/// ones by the X server's raw events. Without X, or with an X server without raw events, `addGlobalMonitor`
/// returns `nullopt`.
///
/// Listens only while there are monitors. Needs a QGuiApplication. A handler may destroy this object. Main
/// thread only.
class X11EventMonitors final : public EventMonitors {
public:
    X11EventMonitors();
    ~X11EventMonitors() override;
    X11EventMonitors(const X11EventMonitors&) = delete;
    X11EventMonitors& operator=(const X11EventMonitors&) = delete;

    [[nodiscard]] std::optional<Token> addGlobalMonitor(EventMask mask, GlobalHandler handler) override;
    [[nodiscard]] std::optional<Token> addLocalMonitor(EventMask mask, LocalHandler handler) override;
    void removeMonitor(Token token) override;

private:
    [[nodiscard]] Token nextToken() { return Token{++lastToken_}; }

    std::unique_ptr<LocalMonitors> local_;
    std::unique_ptr<X11GlobalMonitors> global_;
    std::uint64_t lastToken_ = 0;
};

} // namespace quor::platform
