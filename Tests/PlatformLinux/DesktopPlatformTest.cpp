// SPDX-License-Identifier: MIT
#include "Platform/Linux/DesktopPlatform.h"

#include <QByteArray>

#include <gtest/gtest.h>

TEST(DesktopPlatformTest, PrefersXUnlessTheUserChose)
{
    const struct {
        const char *chosen, *display, *wayland, *argument;
        bool possible;
        const char* platform;
    } cases[]{{"", ":0", "wayland-0", "", true, "xcb"}, {"", "", "wayland-0", "", true, ""},
        {"wayland", ":0", "wayland-0", "", true, "wayland"}, {"", ":0", "wayland-0", "-platform", true, ""},
        {"", "", "", "--platform", true, ""}, {"", "", "", "", false, ""}};
    for (const auto& c : cases) {
        qputenv("QT_QPA_PLATFORM", c.chosen);
        qputenv("DISPLAY", c.display);
        qputenv("WAYLAND_DISPLAY", c.wayland);
        const char* arguments[]{"helper", c.argument, "minimal"};
        EXPECT_EQ(!quor::platform::chooseDesktopPlatform(3, arguments), c.possible) << c.wayland;
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), c.platform) << c.display << ' ' << c.wayland;
    }
}
