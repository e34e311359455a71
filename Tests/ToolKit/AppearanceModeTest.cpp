// SPDX-License-Identifier: MIT
#include "ToolKit/Colors/AppearanceMode.h"
#include "Platform/Resources/DynamicColor.h"
#include "Platform/Views/PaletteApplier.h"
#include "Support/WaitFor.h"
#include "ToolKit/Colors/ColorOperations.h"

#include <QApplication>
#include <QPalette>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using quor::platform::Appearance;
using quor::platform::ColorScheme;
using quor::test::waitFor;
using quor::toolkit::AppearanceMode;

namespace {

struct Observer : quor::toolkit::Trackable {
    int changes = 0;
    void changed(AppearanceMode&, const std::any&) { ++changes; }
};

// Runs `work` on another thread while this one turns the event loop.
void onAnotherThread(const std::function<void()>& work)
{
    std::atomic<bool> done = false;
    std::thread thread([&] {
        work();
        done = true;
    });
    EXPECT_TRUE(waitFor([&] { return done.load(); }));
    thread.join();
}

TEST(AppearanceMode, TheChoiceCountsForTheApplication)
{
    Appearance application;
    AppearanceMode mode(application);
    AppearanceMode other(application);
    mode.setPreferredAppearance(AppearanceMode::Appearance::dark);
    EXPECT_TRUE(mode.isDark() && other.isDark());
    other.setPreferredAppearance(AppearanceMode::Appearance::light);
    EXPECT_TRUE(mode.isDark()) << "one's own choice stands";
    EXPECT_FALSE(other.isDark());

    application.setDesktopScheme(ColorScheme::dark);
    mode.setPreferredAppearance(AppearanceMode::Appearance::automatic);
    EXPECT_TRUE(mode.isDark());
    application.setDesktopScheme(ColorScheme::light);
    EXPECT_FALSE(mode.isDark());
}

TEST(AppearanceMode, TellsOfEveryChoiceAndOfEffectiveChanges)
{
    Appearance application;
    Observer observer;
    {
        AppearanceMode mode(application);
        mode.add(observer, &Observer::changed, AppearanceMode::Event::changed);
        mode.setPreferredAppearance(AppearanceMode::Appearance::automatic);
        EXPECT_EQ(observer.changes, 1) << "even if nothing changes";
        application.setDesktopScheme(ColorScheme::dark);
        EXPECT_EQ(observer.changes, 2);
        application.setDesktopScheme(ColorScheme::dark);
        EXPECT_EQ(observer.changes, 2);
        onAnotherThread([&] { mode.interfaceThemeChanged(); });
        EXPECT_TRUE(waitFor([&] { return observer.changes == 3; }));
    }
    application.setDesktopScheme(ColorScheme::light);
    EXPECT_EQ(observer.changes, 3) << "the observation ends with the object";
}

TEST(AppearanceMode, AnObserverMayEndIt)
{
    Appearance application;
    auto mode = std::make_unique<AppearanceMode>(application);
    Observer observer;
    const auto end = [&](Observer&, AppearanceMode&, const std::any&) { mode.reset(); };
    mode->add(observer, end, AppearanceMode::Event::changed);
    mode->setPreferredAppearance(AppearanceMode::Appearance::dark);
    EXPECT_EQ(mode, nullptr);
}

TEST(AppearanceMode, OtherThreadsAskThroughTheMainThread)
{
    Appearance application;
    application.setDesktopScheme(ColorScheme::dark);
    const AppearanceMode mode(application);
    bool dark = false;
    QColor color;
    onAnotherThread([&] {
        dark = mode.isDark();
        color = quor::toolkit::resolvedColor({Qt::black, Qt::white}, 0.5, application);
    });
    EXPECT_TRUE(dark);
    EXPECT_EQ(quor::toolkit::hexString(color), QStringLiteral("#FFFFFF"));
    EXPECT_NEAR(color.alphaF(), 0.5, 1e-3);
}

TEST(PaletteApplier, WidgetsFollowTheChoice)
{
    Appearance application;
    const quor::platform::PaletteApplier applier(application);
    EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_SetPalette)) << "a palette that fits is left alone";
    application.setAppearance(ColorScheme::dark);
    EXPECT_LT(QApplication::palette().color(QPalette::Base).lightness(), 80);
    EXPECT_GT(QApplication::palette().color(QPalette::Text).lightness(), 180);
    application.setAppearance(std::nullopt);
    EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_SetPalette)) << "the desktop's is back";
}

} // namespace
