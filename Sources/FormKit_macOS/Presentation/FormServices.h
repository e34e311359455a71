// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/PlatformServices.h"

namespace quor::formkit {

/// The services of the desktop that showing forms needs. Cheap to copy; the objects must outlive every copy.
struct FormServices {
    FormServices(platform::Application& theApplication, platform::Appearance& theAppearance,
        platform::WindowServer& theWindowServer)
        : application(theApplication)
        , appearance(theAppearance)
        , windowServer(theWindowServer)
    {
    }
    /// Implicit, so that an application passes the services that it has.
    FormServices(const platform::PlatformServices& services)
        : FormServices(services.application, services.appearance, services.windowServer)
    {
    }

    platform::Application& application;
    platform::Appearance& appearance;
    platform::WindowServer& windowServer;
};

} // namespace quor::formkit
