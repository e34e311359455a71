// SPDX-License-Identifier: MIT
#pragma once

namespace quor::platform {

class Appearance;
class Application;
class Clock;
class DistributedNotificationCenter;
class EventMonitors;
class StatusBar;
class WindowServer;
class Workspace;

/// The services of the desktop that an application uses, as references to objects that its `main` has
/// created. Cheap to copy; the objects must outlive every copy.
struct PlatformServices {
    Application& application;
    Clock& clock;
    DistributedNotificationCenter& notificationCenter;
    Workspace& workspace;
    StatusBar& statusBar;
    Appearance& appearance;
    EventMonitors& eventMonitors;
    WindowServer& windowServer;
};

} // namespace quor::platform
