// SPDX-License-Identifier: MIT
#include "Platform/Linux/DesktopPlatform.h"

#include <QByteArray>

#include <gtest/gtest.h>

TEST(DesktopPlatformTest, PrefersAServerThatAnswersUnlessTheUserChose)
{
    const QByteArray server = qgetenv("DISPLAY");
    const char* nowhere = ":4095";
    const struct {
        const char *chosen, *display, *wayland, *argument;
        bool possible;
        const char* platform;
    } cases[]{{"", server, "wayland-0", "", true, "xcb"}, {"", "", "wayland-0", "", true, ""},
        {"", nowhere, "wayland-0", "", true, ""}, {"", nowhere, "", "", false, ""},
        {"", "", "", "", false, ""}, {"wayland", server, "wayland-0", "", true, "wayland"},
        {"", server, "", "-platform", true, ""}, {"", "", "", "--platform", true, ""}};
    for (const auto& c : cases) {
        qputenv("QT_QPA_PLATFORM", c.chosen);
        qputenv("DISPLAY", c.display);
        qputenv("WAYLAND_DISPLAY", c.wayland);
        const char* arguments[]{"helper", c.argument, "minimal"};
        EXPECT_EQ(!quor::platform::chooseDesktopPlatform(3, arguments), c.possible) << c.display;
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), c.platform) << c.display << ' ' << c.wayland;
    }
    qputenv("DISPLAY", server);
}
