// SPDX-License-Identifier: MIT
#include "Platform/Linux/DesktopPlatform.h"

#include <QByteArray>

#include <gtest/gtest.h>

TEST(DesktopPlatformTest, PrefersAServerThatAnswersUnlessTheUserChose)
{
    const QByteArray server = qgetenv("DISPLAY");
    const char* missingServer = ":4095";
    const struct {
        const char *chosen, *display, *wayland, *argument;
        bool possible;
        const char* platform;
    } cases[]{{"", server, "wayland-0", "", true, "xcb"}, {"", "", "wayland-0", "", true, ""},
        {"", missingServer, "wayland-0", "", true, ""}, {"", missingServer, "", "", false, ""},
        {"", "", "", "", false, ""}, {"wayland", server, "wayland-0", "", true, "wayland"},
        {"", server, "", "-platform", true, ""}, {"", "", "", "--platform", true, ""}};
    for (const auto& each : cases) {
        qputenv("QT_QPA_PLATFORM", each.chosen);
        qputenv("DISPLAY", each.display);
        qputenv("WAYLAND_DISPLAY", each.wayland);
        const char* arguments[]{"helper", each.argument, "minimal"};
        EXPECT_EQ(!quor::platform::chooseDesktopPlatform(3, arguments), each.possible) << each.display;
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), each.platform) << each.display << ' ' << each.wayland;
    }
    qputenv("DISPLAY", server);
}
