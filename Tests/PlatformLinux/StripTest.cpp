// SPDX-License-Identifier: MIT
#include "Platform/Linux/Strip/Strip.h"

#include "Platform/Linux/Strip/StripGeometry.h"
#include "Platform/Services/Appearance.h"
#include "Platform/Services/StatusBar.h"
#include "Platform/Views/StatusBarButton.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

using namespace quor::platform;

TEST(StripTest, GrowsToTheLeftAsItemsComeAndChange)
{
    const auto onScreen = [](const StatusItem& item) {
        return QRect(item.button().mapToGlobal(QPoint()), item.button().size());
    };
    const auto corner = QGuiApplication::primaryScreen()->geometry().topRight();
    Appearance appearance;
    Strip strip(appearance);
    StatusBar bar(strip);
    auto first = bar.statusItem(100);
    const auto before = onScreen(*first);
    EXPECT_EQ(before.topRight(), corner);
    EXPECT_EQ(before.height(), bar.thickness());

    const auto second = bar.statusItem(StatusItem::variableLength);
    EXPECT_EQ(onScreen(*second).right() + 1, before.left());
    EXPECT_GT(onScreen(*second).width(), 0) << "an item without an image must be there to press";

    first->setImage({}, 140.2);
    EXPECT_EQ(onScreen(*first).topRight(), corner);
    EXPECT_EQ(onScreen(*first).width(), before.width() + 41);
    second->setImage({QImage(80, 16, QImage::Format_ARGB32_Premultiplied), true});
    EXPECT_GE(onScreen(*second).width(), 80);
    EXPECT_EQ(onScreen(*second).right() + 1, onScreen(*first).left());

    bar.removeStatusItem(std::move(first));
    EXPECT_EQ(onScreen(*second).topRight(), corner);
}

TEST(StripTest, ReservesDevicePixelsOfTheWholeDesktopUnlessAScreenLiesAbove)
{
    const std::tuple<const char*, QRect, double, QList<QRect>, TopStrut> cases[]
        = {{"fractional", {0, 0, 853, 533}, 1.5, {}, {33, 0, 1278}},
            {"right of another", {1280, 0, 960, 540}, 2, {{0, 0, 1280, 800}}, {44, 1280, 3199}},
            {"a little lower", {1280, 100, 800, 600}, 1, {{0, 0, 1280, 800}}, {122, 1280, 2079}},
            {"under another", {0, 800, 1280, 800}, 1, {{0, 0, 1280, 800}}, {}},
            {"over another", {0, 0, 1280, 800}, 1, {{0, 800, 1280, 800}}, {22, 0, 1279}}};
    for (const auto& [what, screen, scale, others, expected] : cases) {
        const auto strut = stripStrut(screen, scale, 22, others);
        EXPECT_EQ(strut, expected) << what << ": " << strut.startX << ' ' << strut.endX;
    }
}
