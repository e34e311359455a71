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

/// What an application needs of the desktop, as references to parts that its `main` has built.
/// Copy it freely; the parts must outlive every copy.
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
