// SPDX-License-Identifier: MIT
#include "Platform/Linux/PortalAppearance.h"

#include "Platform/Linux/SessionBus.h"
#include "Platform/Views/PaletteApplier.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QEvent>
#include <QPalette>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::waitFor;

namespace {

class FakePortal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakePortal(QVariant value)
        : value_(std::move(value))
    {
        auto connection = bus_.connection();
        connection.registerObject(path_, this, QDBusConnection::ExportScriptableSlots);
        EXPECT_EQ(bus_.claim(u"org.freedesktop.portal.Desktop"_s), SessionBus::Claim::claimed);
    }
    void change(const QString& key, const QVariant& value)
    {
        auto signal
            = QDBusMessage::createSignal(path_, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << u"org.freedesktop.appearance"_s << key << QVariant::fromValue(QDBusVariant(value));
        bus_.connection().send(signal);
    }

public Q_SLOTS:
    // Portals wrap what they read twice.
    Q_SCRIPTABLE QDBusVariant Read(const QString&, const QString&)
    {
        return QDBusVariant(QVariant::fromValue(QDBusVariant(value_)));
    }

private:
    const QString path_ = u"/org/freedesktop/portal/desktop"_s;
    SessionBus bus_;
    QVariant value_;
};

class PortalAppearanceTest : public testing::Test {
protected:
    ~PortalAppearanceTest() override { QApplication::setPalette(palette_); }

    // As if the desktop had given it, not the application.
    static void setPalette(const QColor& window)
    {
        QApplication::setPalette(QPalette(window, window));
        QCoreApplication::setAttribute(Qt::AA_SetPalette, false);
        QEvent change(QEvent::ApplicationPaletteChange);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &change);
    }
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
    setPalette(QColor(0x202020));
    const PortalAppearance portalAppearance(bus, appearance);
    EXPECT_EQ(appearance.effectiveAppearance(), ColorScheme::dark);
    setPalette(QColor(0xf0f0f0));
    EXPECT_TRUE(becomes(ColorScheme::light));
}

TEST_F(PortalAppearanceTest, ThePortalOverridesThePaletteWhileItHasASay)
{
    constexpr uint preferDark = 1, preferLight = 2, noPreference = 0;
    setPalette(QColor(0xf0f0f0));
    FakePortal portal(preferDark);
    const PortalAppearance portalAppearance(bus, appearance);
    EXPECT_EQ(appearance.effectiveAppearance(), ColorScheme::light) << "it must not wait for the portal";
    EXPECT_TRUE(becomes(ColorScheme::dark));

    portal.change(u"color-scheme"_s, preferLight);
    EXPECT_TRUE(becomes(ColorScheme::light));

    setPalette(QColor(0x202020));
    portal.change(u"contrast"_s, preferDark);
    int changes = 0;
    const auto watch = appearance.observe([&] { ++changes; });
    portal.change(u"color-scheme"_s, noPreference);
    EXPECT_TRUE(becomes(ColorScheme::dark));
    EXPECT_EQ(changes, 1) << "another setting, or the palette under a portal with a say, counted";

    portal.change(u"color-scheme"_s, preferLight);
    EXPECT_TRUE(becomes(ColorScheme::light));
    portal.change(u"color-scheme"_s, u"odd"_s);
    EXPECT_TRUE(becomes(ColorScheme::dark));
}

TEST_F(PortalAppearanceTest, WhatWasAppliedIsNotTakenForTheDesktops)
{
    constexpr uint preferDark = 1, noPreference = 0;
    FakePortal portal(preferDark);
    const PortalAppearance portalAppearance(bus, appearance);
    const quor::platform::PaletteApplier applier(appearance);
    EXPECT_TRUE(becomes(ColorScheme::dark));
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 80);
    portal.change(u"color-scheme"_s, noPreference);
    EXPECT_TRUE(becomes(ColorScheme::light));
    EXPECT_GT(QApplication::palette().color(QPalette::Window).lightness(), 180);
}

#include "PortalAppearanceTest.moc"
