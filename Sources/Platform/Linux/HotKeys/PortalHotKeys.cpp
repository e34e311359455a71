// SPDX-License-Identifier: MIT
#include "Platform/Linux/HotKeys/PortalHotKeys.h"

#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Linux/HotKeys/PortalShortcutSession.h"
#include "Platform/Linux/Keyboard/VirtualKeyCodes.h"

#include <QDBusServiceWatcher>
#include <QPointer>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::platform {

PortalHotKeys::PortalHotKeys(SessionBus& bus)
    : bus_(bus)
{
    auto* watcher = new QDBusServiceWatcher(
        QLatin1String(portalService), bus.connection(), QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& newOwner) { handleOwnerChanged(newOwner); });
    connect(&bus, &SessionBus::disconnected, this, [this] { handleOwnerChanged({}); });
}

PortalHotKeys::~PortalHotKeys() = default;

bool PortalHotKeys::isAvailable() const
{
    return bus_.isConnected();
}

std::variant<HotKeys::Reference, HotKeyRefusal> PortalHotKeys::registerHotKey(
    const HotKey& hotKey, Handlers handlers)
{
    if (!isAvailable())
        return HotKeyRefusal::noService;
    if (!evdevCode(hotKey.keyCode))
        return HotKeyRefusal::noSuchKey;
    bindLater();
    return registrations_.add({hotKey, std::move(handlers), freeShortcut(hotKey.identifier.id)});
}

void PortalHotKeys::unregisterHotKey(Reference reference)
{
    if (registrations_.remove(reference))
        bindLater();
}

std::optional<HotKeyRefusal> PortalHotKeys::refusal(Reference reference) const
{
    const auto* registration = registrations_.find(reference);
    if (!registration)
        return std::nullopt;
    if (isPortalGone_)
        return HotKeyRefusal::noService;
    return session_ && !hasToBind_ ? session_->refusal(registration->shortcut) : std::nullopt;
}

QString PortalHotKeys::triggerText(Reference reference) const
{
    const auto* registration = registrations_.find(reference);
    return registration && session_ ? session_->triggerText(registration->shortcut) : QString();
}

QString PortalHotKeys::freeShortcut(std::uint32_t id) const
{
    const QString base = u"hotkey-%1"_s.arg(id);
    QString name = base;
    for (int count = 2;
         std::ranges::any_of(registrations_, [&](const auto& each) { return each.second.shortcut == name; });
         ++count)
        name = base + u'-' + QString::number(count);
    return name;
}

QVariantMap PortalHotKeys::properties(const HotKey& hotKey) const
{
    const auto names = std::to_array<std::pair<std::uint32_t, QString>>(
        {{HotKeyModifier::control, u"CTRL+"_s}, {HotKeyModifier::option, u"ALT+"_s},
            {HotKeyModifier::shift, u"SHIFT+"_s}, {HotKeyModifier::command, u"LOGO+"_s}});
    QString trigger;
    for (const auto& [bit, name] : names)
        trigger += (hotKey.modifiers & bit) ? name : QString();
    const QString symbol = layout_.symbolName(hotKey.keyCode);
    const QString preferred = symbol.isEmpty() ? QString() : trigger + symbol;
    QVariantMap properties{{u"description"_s, hotKey.description.isEmpty() ? preferred : hotKey.description}};
    if (!preferred.isEmpty())
        properties[u"preferred_trigger"_s] = preferred;
    return properties;
}

void PortalHotKeys::bindLater()
{
    if (!std::exchange(hasToBind_, true))
        QMetaObject::invokeMethod(this, &PortalHotKeys::bind, Qt::QueuedConnection);
}

void PortalHotKeys::bind()
{
    hasToBind_ = false;
    isPortalGone_ = false; // the call can start it
    session_.reset();
    if (registrations_.isEmpty())
        return;
    QList<PortalShortcut> shortcuts;
    for (const auto& [reference, registration] : registrations_)
        shortcuts.push_back({registration.shortcut, properties(registration.hotKey)});
    session_ = std::make_unique<PortalShortcutSession>(bus_.connection(), shortcuts);
    // Queued, as a handler can end the session while it reports.
    connect(
        session_.get(), &PortalShortcutSession::changed, this, [this] { registrations_.notifyChanged(); },
        Qt::QueuedConnection);
    connect(session_.get(), &PortalShortcutSession::deactivated, this, &PortalHotKeys::handleDeactivated,
        Qt::QueuedConnection);
}

void PortalHotKeys::handleOwnerChanged(const QString& newOwner)
{
    if (newOwner.isEmpty()) {
        isPortalGone_ = true;
        session_.reset();
        registrations_.notifyChanged();
        return;
    }
    isPortalGone_ = false;
    // Not if the first call is what has started the portal.
    if (!session_ || session_->hasFailed())
        bindLater();
}

void PortalHotKeys::handleDeactivated(const QString& shortcut)
{
    registrations_.notifyReleased(registrations_.select(
        [&](const Registration& registration) { return registration.shortcut == shortcut; }));
}

} // namespace quor::platform
