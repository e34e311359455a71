// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/GraphicsContext.h"
#include "ToolKit/Canvas.h"
#include "ToolKit/Drawing/RoundedCornerShape.h"
#include "ToolKit/Drawing/StripePattern.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

using namespace quor::toolkit;
using quor::test::Canvas;

namespace {

constexpr double pi = std::numbers::pi;

// Whether there is ink in the middle of each eighth, clockwise from twelve o'clock, as digits.
std::string eighths(const Canvas& canvas, QPointF center, double radius)
{
    std::string result;
    for (int i = 0; i < 8; ++i) {
        const double angle = (i + 0.5) * pi / 4;
        const bool ink
            = canvas.hasInk(center.x() + radius * std::sin(angle), center.y() - radius * std::cos(angle));
        result += ink ? '1' : '0';
    }
    return result;
}

TEST(GraphicsContext, ArcsRunClockwiseFromTwelve)
{
    struct Case {
        double start;
        double end;
        const char* expected;
    };
    const std::vector<Case> cases{
        {0, pi / 2, "11000000"},
        {pi, 1.5 * pi, "00001100"},
        {0, 2 * pi, "11111111"},
        {-0.5 * pi, 0.5 * pi, "11000011"},
        {0, 0, "00000000"},
        // Ends before it starts: from three o'clock to the absolute value of the end seen from there.
        {pi, 0, "00110000"},
        {0, -pi / 2, "00111100"},
    };
    for (const auto& [start, end, expected] : cases) {
        Canvas canvas;
        canvas.draw([&, from = start, to = end](QPainter& painter) {
            drawArc(painter, Qt::red, false, Qt::FlatCap, {50, 50}, 30, from, to, 6);
        });
        EXPECT_EQ(eighths(canvas, {50, 50}, 30), expected) << start << " to " << end;
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

TEST(GraphicsContext, TheCallersCompositionModeCounts)
{
    Canvas canvas;
    canvas.draw([](QPainter& painter) {
        painter.fillRect(0, 0, 100, 100, Qt::blue);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        drawArc(painter, QColor(255, 0, 0, 100), false, Qt::FlatCap, {50, 50}, 30, 0, 2 * pi, 6);
        EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing)) << "left as it was";
    });
    EXPECT_EQ(canvas.at(80, 50).alpha(), 100) << "copied, not laid over";
    EXPECT_EQ(canvas.at(50, 50), QColor(Qt::blue));
}

TEST(GraphicsContext, DashesAreAsLongAsTold)
{
    Canvas canvas;
    canvas.draw([](QPainter& p) { drawDashedLine(p, Qt::red, {0, 10}, {100, 10}, 4, {10, 5}); });
    EXPECT_TRUE(canvas.hasInk(9, 9) && canvas.hasInk(16, 11));
    EXPECT_FALSE(canvas.hasInk(12, 10) || canvas.hasInk(27, 10));

    Canvas rect;
    rect.draw([](QPainter& p) { drawDashedRoundedRect(p, Qt::red, 0, {0, 0, 60, 30}); });
    EXPECT_EQ(rect.ink(), QRectF(0, 0, 60, 30)) << "one pixel wide, half a pixel inside";
}

TEST(GraphicsContext, ImpossibleShapesDrawNothing)
{
    Canvas canvas;
    canvas.draw([nan = std::nan("")](QPainter& p) {
        drawArc(p, Qt::red, false, Qt::RoundCap, {50, 50}, 30, 0, nan, 2);
        drawArc(p, Qt::red, false, Qt::RoundCap, {50, 50}, -1, 0, pi, 2);
        drawOval(p, Qt::red, true, std::nullopt, {0, 0, nan, 10});
        drawRoundedRect(p, Qt::red, true, nan, {0, 0, 10, 10});
        drawDashedRoundedRect(p, Qt::red, 3, {0, 0, 1, 1});
        drawDashedLine(p, Qt::red, {0, 0}, {10, 0}, -1, {nan});
    });
    EXPECT_TRUE(canvas.isClear());
}

TEST(RoundedCornerShape, RoundsTheChosenCornersAtTheOrigin)
{
    for (int corners = 0; corners < 16; ++corners) {
        const auto path = RoundedCornerShape{20, RectCorners::fromInt(corners)}.path({500, 300, 80, 60});
        EXPECT_EQ(path.boundingRect(), QRectF(0, 0, 80, 60));
        EXPECT_EQ(!path.contains(QPointF(2, 2)), (corners & 1) != 0) << corners;
        EXPECT_EQ(!path.contains(QPointF(2, 58)), (corners & 2) != 0) << corners;
        EXPECT_EQ(!path.contains(QPointF(78, 2)), (corners & 4) != 0) << corners;
        EXPECT_EQ(!path.contains(QPointF(78, 58)), (corners & 8) != 0) << corners;
    }
}

TEST(StripePattern, LeansByThirtyFiveDegreesAtEveryScale)
{
    for (const double scale : {1.0, 1.25, 2.0}) {
        Canvas canvas({240, 200}, scale);
        canvas.draw([&](QPainter& p) { p.fillRect(0, 0, 240, 200, stripePattern(Qt::red, scale)); });
        // The middle of a stripe starts at x = 5 at the foot of each tile and goes right on its way up.
        for (const double up : {2.0, 20.0, 40.0}) {
            const double middle = 5 + up * std::tan(35 * pi / 180);
            const double half = 5 / std::cos(35 * pi / 180);
            EXPECT_TRUE(canvas.hasInk(middle - half + 1.5, 50 - up)) << scale << ' ' << up;
            EXPECT_TRUE(canvas.hasInk(60 + middle + half - 1.5, 100 - up)) << scale << ' ' << up;
            EXPECT_FALSE(canvas.hasInk(middle + half + 1.5, 50 - up)) << scale << ' ' << up;
        }
    }
}

} // namespace
