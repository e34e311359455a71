// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/HotKeys.h"

#include <memory>

namespace quor::platform {

class SessionBus;

/// Makes the hot keys that the desktop offers: by the global-shortcuts portal in a Wayland session, otherwise
/// by the X server. Borrows the bus, which must outlive the result. `LinuxServices` has none, as each of them
/// costs a connection.
[[nodiscard]] std::unique_ptr<HotKeys> makeDesktopHotKeys(SessionBus& bus);

} // namespace quor::platform
