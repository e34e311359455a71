// SPDX-License-Identifier: MIT
#include "Platform/Resources/DynamicColor.h"
#include "Support/WaitFor.h"
#include "ToolKit/Colors/AppearanceMode.h"
#include "ToolKit/Colors/ColorModel.h"
#include "ToolKit/Colors/ColorOperations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <future>
#include <limits>
#include <vector>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::Appearance;
using quor::platform::ColorScheme;
using quor::test::waitFor;

namespace {

TEST(ColorOperations, HexValuesSurviveAndOthersAreTruncated)
{
    for (quint32 n = 0; n <= 0xFF; ++n) {
        const quint32 value = n << 16 | (0xFF - n) << 8 | n;
        ASSERT_EQ(hexColor(colorWithHexValue(value, 0.5)), value);
        ASSERT_EQ(hexColor(colorWithRedFactor(colorWithHexValue(value, 1), 1, 1, 1, 1)), value);
    }
    EXPECT_EQ(colorWithHexValue(0x01FFFFFF, 1), QColor(Qt::white));
    EXPECT_EQ(hexString(QColor::fromRgbF(0.5F, 0, 0.9999F)), u"#7F00FE"_s);
    EXPECT_EQ(hexColor(QColor::fromHsvF(0, 1, 1)), 0xFF0000U) << "another model is converted";
    EXPECT_EQ(hexColor(QColor()), 0U);
}

TEST(ColorOperations, HexTextIsReadAsAPlainNumber)
{
    const std::vector<std::pair<QString, quint32>> cases{{u"#F58C6E"_s, 0xF58C6E}, {u"#FFF"_s, 0xFFF},
        {u"12#34"_s, 0x12}, {u" 12"_s, 0}, {u"garbage"_s, 0}, {u"##0xBf9"_s, 0xBF9},
        {u"FF00123456"_s, 0x123456}, {u"10000000000000000"_s, 0xFFFFFF}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(colorWithHexString(text), colorWithHexValue(value, 1)) << qPrintable(text);
}

TEST(ColorOperations, ProductsAndMixturesStayColours)
{
    const QColor color = colorWithHexValue(0x804020, 0.5);
    EXPECT_EQ(hexColor(colorWithRedFactor(color, 0.5, 10, -1, 2)), 0x40FF00U);
    const QColor mixed = mixWithColorWithHexValue(Qt::black, 0xFF8000, 0, 0.25);
    EXPECT_NEAR(mixed.greenF(), 0.25 * 0x80 / 0xFF, 1e-3);
    EXPECT_NEAR(mixed.alphaF(), 0.75, 1e-3);
    EXPECT_EQ(hexColor(mixWithColor(Qt::black, Qt::white, 7)), 0xFFFFFFU);
    EXPECT_NEAR(mixWithColor(QColor(), Qt::white, 0.5).alphaF(), 0.5, 1e-3) << "an invalid one is clear";
    EXPECT_TRUE(colorWithHexValue(0, std::nan("")).isValid());
}

TEST(ColorOperations, ContrastGoesByLuminance)
{
    const auto isLight = [](const QColor& color, double t) {
        return contrastColor(color, Qt::black, Qt::white, t) == Qt::white;
    };
    EXPECT_TRUE(isLight(Qt::green, 0.71) && !isLight(Qt::green, 0.72));
    EXPECT_TRUE(isLight(Qt::red, 0.21) && !isLight(Qt::red, 0.2126)) << "the threshold itself is still dark";
}

TEST(ColorOperations, ReadableColorsDifferFromTheirBackgroundAsFarAsTheyMust)
{
    const struct {
        quint32 color, background, expected;
    } cases[] = {{0x0000FF, 0xFFFFFF, 0x0000FF}, {0x308CC6, 0xEFEFEF, 0x2772A2},
        {0x308CC6, 0x242427, 0x3C92C9}, {0xFFFF00, 0xFFFFFF, 0x7A7A00}, {0x777777, 0x808080, 0x171717}};
    for (const auto& [color, background, expected] : cases)
        EXPECT_EQ(hexString(readableColor(colorWithHexValue(color, 1), colorWithHexValue(background, 1))),
            hexString(colorWithHexValue(expected, 1)));
}

TEST(ColorModel, FindsColoursBothWays)
{
    const ColorModel model({defaultPalette.begin(), defaultPalette.end()});
    EXPECT_EQ(hexColor(model.color(-1)), 0xE80C7AU);
    EXPECT_EQ(model.index(0xE80C7A + 9), 7);
    EXPECT_EQ(model.index(0xE80C7A - 10), 0) << "one too far";
    EXPECT_EQ(model.index(std::numeric_limits<int>::min()), 0);
    EXPECT_EQ(ColorModel({5, 0, 3}).index(4), 0) << "the first of several";
    EXPECT_FALSE(ColorModel({}).color(3).isValid());
}

struct Observer : quor::platform::Trackable {
    int changes = 0;
    void changed(AppearanceMode&, const std::any&) { ++changes; }
};

TEST(AppearanceMode, TheChoiceAppliesToTheApplication)
{
    Appearance application;
    AppearanceMode mode(application);
    AppearanceMode other(application);
    mode.setPreferredAppearance(AppearanceMode::Appearance::dark);
    EXPECT_TRUE(mode.isDark() && other.isDark());
    other.setPreferredAppearance(AppearanceMode::Appearance::light);
    EXPECT_TRUE(mode.isDark() && !other.isDark()) << "one's own choice stands";

    application.setDesktopScheme(ColorScheme::dark);
    mode.setPreferredAppearance(AppearanceMode::Appearance::automatic);
    EXPECT_TRUE(mode.isDark());
    application.setDesktopScheme(ColorScheme::light);
    EXPECT_FALSE(mode.isDark());
}

TEST(AppearanceMode, ReportsEveryChoiceAndEffectiveChangesUntilItEnds)
{
    Appearance application;
    Observer observer;
    auto mode = std::make_unique<AppearanceMode>(application);
    mode->add(observer, &Observer::changed, AppearanceMode::Event::changed);
    mode->setPreferredAppearance(AppearanceMode::Appearance::automatic);
    EXPECT_EQ(observer.changes, 1) << "even if nothing changes";
    for (int i = 0; i < 2; ++i)
        application.setDesktopScheme(ColorScheme::dark);
    EXPECT_EQ(observer.changes, 2);

    const auto end = [&](Observer&, AppearanceMode&, const std::any&) { mode.reset(); };
    mode->add(observer, end, AppearanceMode::Event::changed);
    mode->setPreferredAppearance(AppearanceMode::Appearance::light);
    EXPECT_EQ(mode, nullptr) << "an observer may end it";
    application.setAppearance(std::nullopt);
    EXPECT_EQ(observer.changes, 3);
}

TEST(AppearanceMode, OtherThreadsWaitForTheMainThread)
{
    Appearance application;
    application.setDesktopScheme(ColorScheme::dark);
    const AppearanceMode mode(application);
    auto answer = std::async(std::launch::async, [&] {
        const QColor color = resolvedColor({Qt::black, Qt::white}, 0.5, application);
        return std::pair(mode.isDark(), color);
    });
    EXPECT_TRUE(
        waitFor([&] { return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    const auto [dark, color] = answer.get();
    EXPECT_TRUE(dark);
    EXPECT_EQ(color, colorWithHexValue(0xFFFFFF, 0.5));
}

} // namespace
