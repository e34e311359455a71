// SPDX-License-Identifier: MIT
#include "Platform/Linux/Bus/PortalAppearance.h"

#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Views/PaletteApplier.h"
#include "Support/SettingsPortal.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::SettingsPortal;
using quor::test::waitFor;

namespace {

constexpr QRgb darkColor = 0xff202020, lightColor = 0xfff0f0f0;

class PortalAppearanceTest : public testing::Test {
protected:
    ~PortalAppearanceTest() override { QApplication::setPalette(palette_); }

    // Sets a palette as the desktop does, not as the application does.
    static void setPalette(const QColor& window)
    {
        QApplication::setPalette(QPalette(window, window));
        QCoreApplication::setAttribute(Qt::AA_SetPalette, false);
        QEvent change(QEvent::ApplicationPaletteChange);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &change);
    }
    static bool paintsDark() { return colorSchemeOf(QApplication::palette()) == ColorScheme::dark; }
    bool becomes(ColorScheme scheme)
    {
        return waitFor([&] { return appearance.effectiveAppearance() == scheme; });
    }

    SessionBus bus;
    Appearance appearance;

private:
    QPalette palette_ = QApplication::palette();
};

} // namespace

TEST_F(PortalAppearanceTest, WithoutAPortalThePaletteDecidesAndIsFollowed)
{
    setPalette(darkColor);
    const PortalAppearance portalAppearance(bus, appearance);
    const PaletteApplier applier(appearance);
    for (const auto color : {darkColor, lightColor, darkColor}) {
        setPalette(color);
        EXPECT_TRUE(becomes(color == darkColor ? ColorScheme::dark : ColorScheme::light));
    }
}

TEST_F(PortalAppearanceTest, ThePortalOverridesThePaletteWhileItReportsAScheme)
{
    setPalette(lightColor);
    SettingsPortal portal(SettingsPortal::preferDark);
    const PortalAppearance portalAppearance(bus, appearance);
    const PaletteApplier applier(appearance);
    EXPECT_EQ(appearance.effectiveAppearance(), ColorScheme::light) << "it must not wait for the portal";
    EXPECT_TRUE(becomes(ColorScheme::dark));
    setPalette(darkColor);
    setPalette(lightColor);
    EXPECT_TRUE(waitFor(paintsDark));
    portal.change(u"color-scheme"_s, SettingsPortal::noPreference);
    EXPECT_TRUE(becomes(ColorScheme::light)) << "the palette that was applied was taken for the desktop's";
    EXPECT_FALSE(paintsDark());

    portal.change(u"color-scheme"_s, SettingsPortal::preferDark);
    EXPECT_TRUE(becomes(ColorScheme::dark));
    int changes = 0;
    const auto watch = appearance.observe([&] { ++changes; });
    setPalette(lightColor);
    portal.change(u"contrast"_s, SettingsPortal::preferLight);
    portal.change(u"color-scheme"_s, SettingsPortal::preferDark);
    portal.change(u"color-scheme"_s, u"odd"_s);
    EXPECT_TRUE(becomes(ColorScheme::light));
    EXPECT_EQ(changes, 1) << "another setting, or the palette despite the portal's scheme, caused a change";
}

TEST_F(PortalAppearanceTest, FieldsAndDisabledChoicesAreSeenInEitherAppearance)
{
    setPalette(lightColor);
    const PaletteApplier applier(appearance);
    for (const auto scheme : {ColorScheme::dark, ColorScheme::light}) {
        setPalette(scheme == ColorScheme::dark ? lightColor : darkColor); // the opposite, so ours is used
        appearance.setAppearance(scheme);
        ASSERT_TRUE(waitFor([&] { return paintsDark() == (scheme == ColorScheme::dark); }));
        const QPalette palette = QApplication::palette();
        EXPECT_GT(palette.color(QPalette::Base).lightness(), palette.color(QPalette::Window).lightness());
        EXPECT_LT(palette.color(QPalette::Disabled, QPalette::Highlight).saturation(), 30);
    }
}

TEST_F(PortalAppearanceTest, FollowsWhetherTheDesktopAnimates)
{
    SettingsPortal portal(false);
    const PortalAppearance portalAppearance(bus, appearance);
    EXPECT_TRUE(appearance.animates()) << "it must not wait for the portal";
    for (const QVariant& value : {QVariant(false), QVariant(true), QVariant(false), QVariant(u"odd"_s)}) {
        portal.change(u"enable-animations"_s, value, u"org.gnome.desktop.interface"_s);
        portal.change(u"color-scheme"_s, false);
        EXPECT_TRUE(waitFor([&] { return appearance.animates() == (value != false); }));
    }
}
