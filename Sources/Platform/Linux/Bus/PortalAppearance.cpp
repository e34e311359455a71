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
constexpr auto settingGroup = "org.freedesktop.appearance"_L1;
constexpr auto settingKey = "color-scheme"_L1;

std::optional<ColorScheme> schemeFromSetting(QVariant value)
{
    // The answer to Read wraps the value in two variants, the signal in one.
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
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
    askPortal(bus);
}

void PortalAppearance::askPortal(SessionBus& bus)
{
    auto connection = bus.connection();
    // No service name, as Qt would then wait for the bus to name its owner. The slot takes the whole message,
    // as Qt connects no slot with a QDBusVariant until that type has been registered elsewhere.
    connection.connect({}, portalPath, settingsInterface, u"SettingChanged"_s, {settingGroup, settingKey},
        u"ssv"_s, this, SLOT(settingChanged(QDBusMessage)));

    auto request = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, u"Read"_s);
    request << QString(settingGroup) << QString(settingKey);
    auto* answer = new QDBusPendingCallWatcher(connection.asyncCall(request), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            setPortalScheme(reply.value().variant());
    });
}

void PortalAppearance::settingChanged(const QDBusMessage& change)
{
    setPortalScheme(change.arguments().value(2));
}

void PortalAppearance::setPortalScheme(const QVariant& value)
{
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
