// SPDX-License-Identifier: MIT
#include "Platform/Linux/HotKeys/PortalShortcutSession.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>

#include <utility>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

constexpr auto shortcutsInterface = "org.freedesktop.portal.GlobalShortcuts"_L1;
constexpr auto sessionInterface = "org.freedesktop.portal.Session"_L1;

} // namespace

PortalShortcutSession::PortalShortcutSession(
    const QDBusConnection& connection, QList<PortalShortcut> shortcuts)
    : connection_(connection)
    , shortcuts_(std::move(shortcuts))
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    const QString token = nextPortalToken();
    path_ = portalObjectPath(connection, u"session"_s, token);
    // The slots take the whole message, and no service is named, for the reasons that `PortalAppearance` has.
    connection_.connect({}, QLatin1String(portalPath), shortcutsInterface, u"Deactivated"_s, this,
        SLOT(handleDeactivated(QDBusMessage)));
    connection_.connect({}, QLatin1String(portalPath), shortcutsInterface, u"ShortcutsChanged"_s, this,
        SLOT(handleShortcutsChanged(QDBusMessage)));
    connection_.connect({}, path_, sessionInterface, u"Closed"_s, this, SLOT(handleClosed()));
    creation_ = std::make_unique<PortalRequest>(connection_, shortcutsInterface, u"CreateSession"_s,
        QVariantList(), QVariantMap{{u"session_handle_token"_s, token}},
        [this](PortalRequest::Outcome outcome, const QVariantMap&) {
            outcome == PortalRequest::Outcome::granted ? bind() : fail(outcome);
        });
}

PortalShortcutSession::~PortalShortcutSession()
{
    // Also before the portal has reported the session: by the time it reads this, it has made it.
    closePortalObject(connection_, path_, sessionInterface);
}

void PortalShortcutSession::bind()
{
    const QVariantList arguments{QVariant::fromValue(QDBusObjectPath(path_)), QVariant::fromValue(shortcuts_),
        QString() /* no parent window */};
    binding_ = std::make_unique<PortalRequest>(connection_, shortcutsInterface, u"BindShortcuts"_s, arguments,
        QVariantMap(), [this](PortalRequest::Outcome outcome, const QVariantMap& results) {
            outcome == PortalRequest::Outcome::granted ? useShortcuts(results.value(u"shortcuts"_s))
                                                       : fail(outcome);
        });
}

void PortalShortcutSession::fail(PortalRequest::Outcome outcome)
{
    failure_
        = outcome == PortalRequest::Outcome::declined ? HotKeyRefusal::declined : HotKeyRefusal::noService;
    triggers_.clear();
    Q_EMIT changed();
}

void PortalShortcutSession::useShortcuts(const QVariant& shortcuts)
{
    isBound_ = true;
    triggers_.clear();
    for (const auto& shortcut : qdbus_cast<QList<PortalShortcut>>(shortcuts))
        triggers_[shortcut.id] = shortcut.properties.value(u"trigger_description"_s).toString();
    Q_EMIT changed();
}

std::optional<HotKeyRefusal> PortalShortcutSession::refusal(const QString& id) const
{
    if (failure_ || !isBound_)
        return failure_;
    return triggers_.contains(id) ? std::nullopt : std::optional(HotKeyRefusal::declined);
}

void PortalShortcutSession::handleDeactivated(const QDBusMessage& signal)
{
    const auto arguments = signal.arguments();
    if (arguments.value(0).value<QDBusObjectPath>().path() == path_)
        Q_EMIT deactivated(arguments.value(1).toString());
}

void PortalShortcutSession::handleShortcutsChanged(const QDBusMessage& signal)
{
    const auto arguments = signal.arguments();
    if (!failure_ && arguments.value(0).value<QDBusObjectPath>().path() == path_)
        useShortcuts(arguments.value(1));
}

void PortalShortcutSession::handleClosed()
{
    fail(PortalRequest::Outcome::noService);
}

} // namespace quor::platform
