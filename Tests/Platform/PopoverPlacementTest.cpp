// SPDX-License-Identifier: MIT
#include "Platform/Views/Popover/PopoverPlacement.h"
#include "Platform/Views/Popover/PopoverFrame.h"

#include <QImage>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

#include <algorithm>

using namespace quor::platform;
using enum RectEdge;

namespace {

// A screen of 1000 by 800 with a panel of 40 pixels at its upper edge.
constexpr QRect visibleFrame(0, 40, 1000, 760);
constexpr int inset = 20;

} // namespace

TEST(PopoverPlacementTest, StaysOnTheScreenBesideItsAnchor)
{
    const struct {
        const char* name;
        QRect anchor;
        QSize size;
        RectEdge preferred;
        PopoverPlacement expected;
    } cases[] = {
        {"below", {400, 300, 100, 20}, {200, 100}, maxY, {maxY, {350, 320, 200, 100}, 449}},
        {"above", {400, 300, 100, 20}, {200, 100}, minY, {minY, {350, 200, 200, 100}, 449}},
        {"left", {400, 300, 100, 20}, {200, 100}, minX, {minX, {200, 260, 200, 100}, 309}},
        {"right", {400, 300, 100, 20}, {200, 100}, maxX, {maxX, {500, 260, 200, 100}, 309}},
        {"exactly enough room", {400, 680, 100, 20}, {200, 100}, maxY, {maxY, {350, 700, 200, 100}, 449}},
        {"a pixel too little", {400, 681, 100, 20}, {200, 100}, maxY, {minY, {350, 581, 200, 100}, 449}},
        {"flips from the right", {900, 300, 50, 20}, {200, 100}, maxX, {minX, {700, 260, 200, 100}, 309}},
        {"flips off the panel", {400, 100, 100, 20}, {200, 100}, minY, {maxY, {350, 120, 200, 100}, 449}},
        {"slides from the left edge", {0, 300, 60, 20}, {200, 100}, maxY, {maxY, {0, 320, 200, 100}, 29}},
        {"slides from the right edge", {980, 300, 20, 20}, {200, 100}, maxY,
            {maxY, {800, 320, 200, 100}, 980}},
        {"slides upwards", {400, 780, 20, 20}, {200, 100}, maxX, {maxX, {420, 700, 200, 100}, 780}},
        {"too high for both sides", {400, 400, 100, 20}, {200, 500}, maxY, {maxX, {500, 160, 200, 500}, 409}},
        {"too high, and none right", {790, 400, 100, 20}, {200, 500}, maxY,
            {minX, {590, 160, 200, 500}, 409}},
        {"too wide for both sides", {450, 300, 100, 20}, {600, 100}, minX, {maxY, {200, 320, 600, 100}, 499}},
        {"covers its anchor", {450, 300, 100, 20}, {700, 700}, minY, {maxY, {150, 100, 700, 700}, 499}},
        {"covers it from the roomier side", {450, 300, 100, 20}, {700, 700}, minX,
            {minX, {0, 40, 700, 700}, 309}},
        {"larger than the screen", {450, 300, 100, 20}, {3000, 3000}, maxY, {maxY, {0, 40, 1000, 760}, 499}},
        {"the anchor is off the screen", {-500, 1200, 100, 20}, {200, 100}, maxY,
            {minY, {0, 700, 200, 100}, 20}},
        {"smaller than its arrow", {400, 300, 100, 20}, {30, 30}, maxY, {maxY, {435, 320, 30, 30}, 450}},
    };
    for (const auto& [name, anchor, size, preferred, expected] : cases) {
        const auto placed = placePopover({anchor, size, visibleFrame, inset}, preferred);
        EXPECT_EQ(placed.edge, expected.edge) << name;
        EXPECT_EQ(placed.window, expected.window)
            << name << ": " << placed.window.x() << ' ' << placed.window.y();
        EXPECT_EQ(placed.tip, expected.tip) << name;
    }
}

TEST(PopoverFrameTest, TheArrowReachesTheAnchorOnTheSideOfTheAnchor)
{
    constexpr int m = PopoverFrame::margin;
    const struct {
        std::optional<RectEdge> edge;
        QRectF bounds;
        QPointF inArrow;
    } cases[] = {
        {maxY, {m, 0, 200 - 2 * m, 100 - m}, {60, m / 2.0}},
        {minY, {m, m, 200 - 2 * m, 100 - m}, {60, 100 - m / 2.0}},
        {maxX, {0, m, 200 - m, 100 - 2 * m}, {m / 2.0, 60}},
        {minX, {m, m, 200 - m, 100 - 2 * m}, {200 - m / 2.0, 60}},
        {std::nullopt, {m, m, 200 - 2 * m, 100 - 2 * m}, {100, 50}},
    };
    for (const auto& [edge, bounds, inArrow] : cases) {
        const PopoverFrame frame({200, 100}, edge, 60);
        EXPECT_EQ(frame.outline().boundingRect(), bounds);
        EXPECT_TRUE(frame.outline().contains(inArrow));
        EXPECT_FALSE(frame.outline().contains({m + 1.0, m + 1.0})) << "round corners";
    }
}

TEST(PopoverFrameTest, ItsBorderIsWholeWhereThePixelsEnd)
{
    for (const qreal scale : {1.0, 1.5, 2.0}) {
        for (const RectEdge edge : {minX, minY, maxX, maxY}) {
            const PopoverFrame frame({200, 100}, edge, 60);
            const QRegion pixels = frame.pixels(scale);
            QImage image(QSize(200, 100) * scale, QImage::Format_RGB32);
            image.setDevicePixelRatio(scale);
            image.fill(Qt::white);
            QPalette palette(Qt::white, Qt::white);
            palette.setColor(QPalette::WindowText, Qt::black);
            QPainter painter(&image);
            frame.paintCutOut(painter, palette);
            painter.end();
            int lightest = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (pixels.contains(QPoint(x, y))
                        && !(pixels.contains(QPoint(x - 1, y)) && pixels.contains(QPoint(x + 1, y))))
                        lightest = std::max(lightest, qGray(image.pixel(x, y)));
            EXPECT_LT(lightest, 230) << scale << ' ' << int(edge);
        }
    }
}
