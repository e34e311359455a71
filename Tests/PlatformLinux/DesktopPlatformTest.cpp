// SPDX-License-Identifier: MIT
#include "Platform/Linux/DesktopPlatform.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <vector>

using quor::platform::chooseDesktopPlatform;

TEST(DesktopPlatformTest, PrefersXUnlessTheUserChose)
{
    const struct {
        const char *chosen, *display, *wayland, *argument;
        bool possible;
        const char* platform;
    } cases[]{
        {"", ":0", "", "", true, "xcb"},
        {"", ":0", "wayland-0", "", true, "xcb"},
        {"", "", "wayland-0", "", true, ""},
        {"", "", "", "", false, ""},
        {"offscreen", "", "", "", true, "offscreen"},
        {"wayland", ":0", "wayland-0", "", true, "wayland"},
        {"", ":0", "wayland-0", "-platform", true, ""},
        {"", "", "", "--platform", true, ""},
    };
    constexpr const char* names[]{"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
    std::vector<QByteArray> before;
    for (const auto* name : names)
        before.push_back(qgetenv(name));
    for (const auto& c : cases) {
        qputenv("QT_QPA_PLATFORM", c.chosen);
        qputenv("DISPLAY", c.display);
        qputenv("WAYLAND_DISPLAY", c.wayland);
        const char* arguments[]{"helper", c.argument, "minimal"};
        EXPECT_EQ(!chooseDesktopPlatform(3, arguments), c.possible) << c.display << ' ' << c.wayland;
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), c.platform) << c.display << ' ' << c.wayland;
    }
    for (std::size_t i = 0; i < before.size(); ++i)
        qputenv(names[i], before[i]);
}
