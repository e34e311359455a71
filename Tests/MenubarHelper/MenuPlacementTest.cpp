// SPDX-License-Identifier: MIT
#include "View/Menu/MenuPlacement.h"

#include <gtest/gtest.h>

using namespace quor;
using quor::helper::menuPosition;

namespace {

platform::Screen screen(const QRectF& frame, double scale = 1, double panelAtRight = 0)
{
    return {frame, frame.adjusted(0, 22, -panelAtRight, 0), std::nullopt, scale};
}

TEST(MenuPlacementTest, HangsBelowTheItemAndEndsOnItsScreen)
{
    const auto main = screen({0, 0, 1280, 800});
    const struct {
        const char* what;
        QRectF anchor;
        QSize window;
        std::optional<platform::Screen> screen;
        QPoint position;
    } cases[] = {
        {"room to the right", {100, 0, 90, 22}, {300, 400}, main, {100, 22}},
        {"room to the last pixel", {980, 0, 90, 22}, {300, 400}, main, {980, 22}},
        {"a pixel short", {981, 0, 90, 22}, {300, 400}, main, {771, 22}},
        {"in the corner", {1190, 0, 90, 22}, {300, 400}, main, {980, 22}},
        {"a panel at the right", {900, 0, 90, 22}, {300, 400}, screen({0, 0, 1280, 800}, 1, 100), {690, 22}},
        {"scale 1.5, over the corner", {764, 0, 90, 22}, {300, 400}, screen({0, 0, 853, 533}, 1.5),
            {553, 22}},
        {"scale 2", {550, 0, 90, 22}, {300, 300}, screen({0, 0, 640, 400}, 2), {340, 22}},
        {"a screen at the right", {3100, 100, 90, 22}, {300, 400}, screen({1280, 100, 1920, 1080}),
            {3100 + 90 - 300, 122}},
        {"a screen at the left", {-90, 50, 90, 22}, {320, 400}, screen({-1280, 50, 1280, 1024}), {-320, 72}},
        {"its left edge", {-1280, 50, 90, 22}, {320, 400}, screen({-1280, 50, 1280, 1024}), {-1280, 72}},
        {"the left end, as from right to left", {0, 0, 90, 22}, {500, 400}, main, {0, 22}},
        {"a screen narrower than the menu", {200, 0, 90, 22}, {500, 400}, screen({0, 0, 320, 240}), {0, 22}},
        {"no screen", {700, 0, 90, 22}, {300, 400}, std::nullopt, {490, 22}},
        {"neither item nor screen", {}, {300, 400}, std::nullopt, {-300, 0}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(menuPosition(each.anchor, each.window, each.screen), each.position) << each.what;
}

} // namespace
