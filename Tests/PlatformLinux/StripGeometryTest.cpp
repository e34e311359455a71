// SPDX-License-Identifier: MIT
#include "Platform/Linux/StripGeometry.h"

#include <gtest/gtest.h>

using namespace quor::platform;

TEST(StripGeometryTest, ReservesDevicePixelsOfTheWholeDesktopUnlessAScreenLiesAbove)
{
    const struct {
        const char* what;
        QRect screen;
        double scale;
        QList<QRect> others;
        TopStrut expected;
    } cases[]{
        {"alone", {0, 0, 1280, 800}, 1, {}, {22, 0, 1279}},
        {"scaled", {0, 0, 1280, 800}, 2, {}, {44, 0, 2559}},
        {"fractional", {0, 0, 853, 533}, 1.5, {}, {33, 0, 1278}},
        {"right of another", {1280, 0, 960, 540}, 2, {{0, 0, 1280, 800}}, {44, 1280, 3199}},
        {"a little lower than its neighbour", {1280, 100, 800, 600}, 1, {{0, 0, 1280, 800}},
            {122, 1280, 2079}},
        {"under another", {0, 800, 1280, 800}, 1, {{0, 0, 1280, 800}}, {}},
        {"over another", {0, 0, 1280, 800}, 1, {{0, 800, 1280, 800}}, {22, 0, 1279}},
    };
    for (const auto& c : cases) {
        const auto strut = stripStrut(c.screen, c.scale, 22, c.others);
        EXPECT_EQ(strut, c.expected) << c.what << ": " << strut.height << ' ' << strut.startX << ' '
                                     << strut.endX;
    }
}
