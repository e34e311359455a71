// SPDX-License-Identifier: MIT
#include "Platform/Linux/Bus/PortalAppearance.h"

#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Views/PaletteApplier.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

constexpr auto portalService = "org.freedesktop.portal.Desktop"_L1;
constexpr auto portalPath = "/org/freedesktop/portal/desktop"_L1;
constexpr auto settingsInterface = "org.freedesktop.portal.Settings"_L1;
constexpr auto schemeGroup = "org.freedesktop.appearance"_L1;
constexpr auto schemeKey = "color-scheme"_L1;
constexpr auto animationsGroup = "org.gnome.desktop.interface"_L1;
constexpr auto animationsKey = "enable-animations"_L1;

// The answer to Read wraps the value in two variants, the signal in one.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<ColorScheme> schemeFromSetting(const QVariant& value)
{
    if (value == 1U)
        return ColorScheme::dark;
    if (value == 2U)
        return ColorScheme::light;
    return std::nullopt;
}

} // namespace

PortalAppearance::PortalAppearance(SessionBus& bus, Appearance& appearance)
    : appearance_(appearance)
{
    apply();
    QCoreApplication::instance()->installEventFilter(this);
    followSetting(bus, schemeGroup, schemeKey);
    followSetting(bus, animationsGroup, animationsKey);
}

void PortalAppearance::followSetting(SessionBus& bus, const QString& group, const QString& key)
{
    auto connection = bus.connection();
    // No service name, as Qt would then wait for the bus to name its owner. The slot takes the whole message,
    // as Qt connects no slot with a QDBusVariant until that type has been registered elsewhere.
    connection.connect({}, portalPath, settingsInterface, u"SettingChanged"_s, {group, key}, u"ssv"_s, this,
        SLOT(settingChanged(QDBusMessage)));

    auto request = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, u"Read"_s);
    request << group << key;
    auto* answer = new QDBusPendingCallWatcher(connection.asyncCall(request), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, group] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            useSetting(group, reply.value().variant());
    });
}

void PortalAppearance::settingChanged(const QDBusMessage& change)
{
    const auto arguments = change.arguments();
    useSetting(arguments.value(0).toString(), arguments.value(2));
}

void PortalAppearance::useSetting(const QString& group, const QVariant& wrapped)
{
    const QVariant value = unwrapped(wrapped);
    if (group == animationsGroup) {
        appearance_.setDesktopAnimates(value != false);
        return;
    }
    portalScheme_ = schemeFromSetting(value);
    apply();
}

bool PortalAppearance::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == QCoreApplication::instance())
        apply();
    return QObject::eventFilter(watched, event);
}

void PortalAppearance::apply()
{
    // With this attribute the palette is the application's own, not the desktop's.
    if (!QCoreApplication::testAttribute(Qt::AA_SetPalette))
        paletteScheme_ = colorSchemeOf(QApplication::palette());
    appearance_.setDesktopScheme(portalScheme_.value_or(paletteScheme_));
}

} // namespace quor::platform
