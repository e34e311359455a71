// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/GraphicsContext.h"
#include "ToolKit/Canvas.h"
#include "ToolKit/Drawing/RoundedCornerShape.h"
#include "ToolKit/Drawing/StripePattern.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace quor::toolkit;
using quor::test::Canvas;

namespace {

constexpr double pi = std::numbers::pi;

TEST(GraphicsContext, ArcsRunClockwiseFromTwelve)
{
    struct Case {
        double start;
        double end;
        const char* eighths; // ink in the middle of each, clockwise from twelve o'clock
    };
    for (const Case& c : std::initializer_list<Case>{{0, pi / 2, "11000000"}, {0, 2 * pi, "11111111"},
             {-0.5 * pi, 0.5 * pi, "11000011"}, {0, 0, "00000000"},
             // Ends before it starts: from three o'clock to the absolute value of the end from there.
             {pi, 0, "00110000"}, {0, -pi / 2, "00111100"}, {0, std::nan(""), "00000000"}}) {
        Canvas canvas;
        canvas.draw([&](QPainter& painter) {
            drawArc(painter, Qt::red, false, Qt::FlatCap, {50, 50}, 30, c.start, c.end, 6);
        });
        std::string eighths;
        for (int i = 0; i < 8; ++i) {
            const double angle = (i + 0.5) * pi / 4;
            eighths += canvas.hasInk(50 + 30 * std::sin(angle), 50 - 30 * std::cos(angle)) ? '1' : '0';
        }
        EXPECT_EQ(eighths, c.eighths) << c.start << " to " << c.end;
    }
}

TEST(GraphicsContext, ArcsHaveWidthCapsAndFill)
{
    const auto quarter = [](bool fill, Qt::PenCapStyle cap) {
        return Canvas()
            .draw([&](QPainter& p) {
                drawArc(p, Qt::red, fill, cap, {50, 50}, 30, pi / 2, pi, 10);
            })
            .ink();
    };
    EXPECT_EQ(quarter(false, Qt::FlatCap), QRectF(50, 50, 35, 35));
    EXPECT_EQ(quarter(false, Qt::RoundCap), QRectF(45, 45, 40, 40));
    EXPECT_EQ(quarter(true, Qt::RoundCap), QRectF(50, 50, 30, 30));
}

TEST(GraphicsContext, DashesHaveTheGivenLengths)
{
    Canvas canvas;
    canvas.draw([](QPainter& p) { drawDashedLine(p, Qt::red, {0, 10}, {100, 10}, 4, {10, 5}); });
    EXPECT_TRUE(canvas.hasInk(9, 9) && canvas.hasInk(16, 11));
    EXPECT_FALSE(canvas.hasInk(12, 10) || canvas.hasInk(27, 10));
    const auto outline = [](QPainter& p) { drawDashedRoundedRect(p, Qt::red, 0, {0, 0, 60, 30}); };
    EXPECT_EQ(Canvas().draw(outline).ink(), QRectF(0, 0, 60, 30)) << "one wide, half of that inside";
}

TEST(RoundedCornerShape, RoundsTheChosenCornersAtTheOrigin)
{
    const QPointF tips[] = {{2, 2}, {2, 58}, {78, 2}, {78, 58}};
    for (int corners = 0; corners < 16; ++corners) {
        const auto path = RoundedCornerShape{20, RectCorners::fromInt(corners)}.path({500, 300, 80, 60});
        EXPECT_EQ(path.boundingRect(), QRectF(0, 0, 80, 60));
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(path.contains(tips[i]), (corners & 1 << i) == 0) << corners << ' ' << i;
    }
}

TEST(StripePattern, LeansByThirtyFiveDegreesAndMeetsAtAnyScale)
{
    Canvas canvas({240, 200}, 1.25);
    canvas.draw([](QPainter& p) { p.fillRect(0, 0, 240, 200, stripePattern(Qt::red, 1.25)); });
    // The middle of a stripe starts at x = 5 at the foot of each tile and goes right on its way up.
    const double half = 5 / std::cos(35 * pi / 180);
    for (const double up : {2.0, 40.0}) {
        const double middle = 5 + up * std::tan(35 * pi / 180);
        EXPECT_TRUE(canvas.hasInk(middle - half + 1.5, 50 - up)) << up;
        EXPECT_TRUE(canvas.hasInk(60 + middle + half - 1.5, 100 - up)) << up;
        EXPECT_FALSE(canvas.hasInk(middle + half + 1.5, 50 - up)) << up;
    }
}

} // namespace
