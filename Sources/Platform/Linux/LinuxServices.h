// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Bus/DBusNotificationCenter.h"
#include "Platform/Linux/Bus/DBusWorkspace.h"
#include "Platform/Linux/Bus/PortalAppearance.h"
#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Linux/Monitors/X11EventMonitors.h"
#include "Platform/Linux/QtApplication.h"
#include "Platform/Linux/Strip/Strip.h"
#include "Platform/Linux/X11/X11WindowServer.h"
#include "Platform/Services/Appearance.h"
#include "Platform/Services/Clock.h"
#include "Platform/Services/PlatformServices.h"
#include "Platform/Services/StatusBar.h"
#include "Platform/Views/PaletteApplier.h"

namespace quor::platform {

/// Owns all services that an application gets on a Linux desktop.
///
/// `main` creates it after the QApplication. It must outlive every user of the services. The order in a
/// `main` is: call `chooseDesktopPlatform`; call `SessionBus::sessionAddress` to see whether there is a bus;
/// create the QApplication; create this; call `sessionBus().claim`. Main thread only.
class LinuxServices final {
public:
    LinuxServices() = default;
    LinuxServices(const LinuxServices&) = delete;
    LinuxServices& operator=(const LinuxServices&) = delete;

    [[nodiscard]] SessionBus& sessionBus() { return bus_; }
    [[nodiscard]] PlatformServices services()
    {
        return {application_, clock_, notificationCenter_, workspace_, statusBar_, appearance_,
            eventMonitors_, windowServer_};
    }

private:
    QtApplication application_;
    SystemClock clock_;
    SessionBus bus_;
    Appearance appearance_;
    PortalAppearance portalAppearance_{bus_, appearance_};
    PaletteApplier paletteApplier_{appearance_};
    DBusNotificationCenter notificationCenter_{bus_};
    DBusWorkspace workspace_{bus_};
    Strip strip_{appearance_};
    StatusBar statusBar_{strip_};
    X11EventMonitors eventMonitors_;
    X11WindowServer windowServer_;
};

} // namespace quor::platform
