// SPDX-License-Identifier: MIT
#include "Platform/Linux/HotKeys/DesktopHotKeys.h"

#include "Platform/Linux/HotKeys/PortalHotKeys.h"
#include "Platform/Linux/HotKeys/X11HotKeys.h"

namespace quor::platform {

std::unique_ptr<HotKeys> makeDesktopHotKeys(SessionBus& bus)
{
    // In such a session the X server sees only the keys that go to its own clients.
    const bool isWayland
        = qgetenv("XDG_SESSION_TYPE") == "wayland" || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (isWayland)
        return std::make_unique<PortalHotKeys>(bus);
    return std::make_unique<X11HotKeys>();
}

} // namespace quor::platform
