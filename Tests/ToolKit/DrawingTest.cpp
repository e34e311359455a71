// SPDX-License-Identifier: MIT
#include "ToolKit/Canvas.h"
#include "ToolKit/Drawing/CoreImageFactory.h"
#include "ToolKit/Drawing/GraphicsContext.h"
#include "ToolKit/Drawing/RoundedCornerShape.h"
#include "ToolKit/Drawing/ShadowPresets.h"
#include "ToolKit/Drawing/StripePattern.h"
#include "ToolKit/Drawing/Text/ComposedLabel.h"
#include "ToolKit/Drawing/Text/CustomFontSizeModifier.h"
#include "ToolKit/Drawing/Text/SystemFont.h"

#include <QDir>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::AttributedString;
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

TEST(CoreImageFactory, TheKitsImagesAreThere)
{
    using Name = CoreImageFactory::ImageName;
    for (const bool isTemplate : {false, true}) {
        for (const auto& [name, side] : {std::pair(Name::syncSpinner, 32), {Name::syncSpinnerSmall, 16}}) {
            const auto image = CoreImageFactory::image(name, isTemplate, 2);
            EXPECT_EQ(image.pixels.deviceIndependentSize(), QSizeF(side, side));
            EXPECT_GT(image.pixels.pixelColor(2 * side * 27 / 32, side).alpha(), 200) << "the arrow's arc";
        }
    }
}

TEST(ComposedLabel, PutsTintedIconsBeforeOrAfterTheText)
{
    const QTemporaryDir folder;
    QImage wide(40, 20, QImage::Format_ARGB32);
    wide.fill(Qt::blue);
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"Images"_s) && wide.save(folder.filePath(u"Images/wide.png"_s)));
    const QFont font = QGuiApplication::font();
    const auto label = [&](bool imagesFirst) {
        return composedLabel(AttributedString(u"Text"_s), {u"wide"_s, u"missing"_s, u"wide"_s}, Qt::red, font,
            imagesFirst, quor::platform::Bundle(folder.path()));
    };

    const auto first = label(true);
    EXPECT_EQ(first.string(), u"\uFFFC \uFFFC Text"_s);
    EXPECT_EQ(label(false).string(), u"Text \uFFFC \uFFFC"_s);
    const auto icon = first.attachment(0);
    ASSERT_TRUE(icon.has_value());
    const double cap = QFontMetricsF(font).capHeight();
    EXPECT_EQ(icon->bounds.size(), QSizeF(2, 1) * std::round(cap * 1.4));
    EXPECT_NEAR(icon->bounds.center().y(), cap / 2, 1e-9);
    EXPECT_EQ(icon->image.pixelColor(icon->image.rect().center()), QColor(Qt::red));
}

TEST(ShadowPresets, FallOnWhatIsAroundTheWidget)
{
    const auto darkness = [](void (*apply)(QWidget&), int x, int y) {
        QWidget window;
        window.resize(100, 100);
        window.setStyleSheet(u"background: white"_s);
        QWidget box(&window);
        box.setGeometry(30, 30, 40, 40);
        apply(box);
        return 255 - window.grab().toImage().pixelColor(x, y).lightness();
    };
    EXPECT_GT(darkness(applyLightShadow, 50, 71), 12);
    EXPECT_LT(darkness(applyLightShadow, 50, 80), 4);
    EXPECT_NEAR(darkness(applyLightShadow, 50, 71), darkness(applyLightShadow, 50, 28), 3);
    EXPECT_LT(darkness(applyStrongShadow, 50, 27), darkness(applyStrongShadow, 50, 72) / 2)
        << "it falls down and to the right";
    EXPECT_GT(darkness(applyStrongShadow, 72, 50), darkness(applyStrongShadow, 28, 50));
}

TEST(CustomFontSizeModifier, SizesFollowTheUsersFontAndAreNotRoundedToPixels)
{
    const QFont before = QGuiApplication::font();
    const struct {
        double points, title, pixels;
    } cases[] = {{10, 19.615, 13.333}, {11.5, 22.558, 15.333}, {12, 23.538, 16}};
    for (const auto& entry : cases) {
        QFont font = before;
        font.setPointSizeF(entry.points);
        QGuiApplication::setFont(font);
        QWidget content;
        CustomFontSizeModifier{TextStyle::title2, QFont::Bold, 1.5}.apply(content);
        EXPECT_NEAR(content.font().pointSizeF(), entry.title, 0.001);
        EXPECT_EQ(content.font().weight(), QFont::Bold);
        EXPECT_NEAR(pixelSize(font), entry.pixels, 0.001);
        EXPECT_NEAR(pixelSize(systemFont(entry.pixels, QFont::Normal)), entry.pixels, 0.001);
    }
    QGuiApplication::setFont(before);
}

} // namespace
