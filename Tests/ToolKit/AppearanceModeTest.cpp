// SPDX-License-Identifier: MIT
#include "ToolKit/Colors/AppearanceMode.h"
#include "Platform/Resources/DynamicColor.h"
#include "Support/WaitFor.h"
#include "ToolKit/Colors/ColorOperations.h"

#include <gtest/gtest.h>

#include <future>

using quor::platform::Appearance;
using quor::platform::ColorScheme;
using quor::test::waitFor;
using quor::toolkit::AppearanceMode;

namespace {

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
        const QColor color = quor::toolkit::resolvedColor({Qt::black, Qt::white}, 0.5, application);
        return std::pair(mode.isDark(), color);
    });
    EXPECT_TRUE(
        waitFor([&] { return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    const auto [dark, color] = answer.get();
    EXPECT_TRUE(dark);
    EXPECT_EQ(color, quor::toolkit::colorWithHexValue(0xFFFFFF, 0.5));
}

} // namespace
