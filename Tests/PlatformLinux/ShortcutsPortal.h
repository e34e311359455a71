// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Linux/HotKeys/PortalShortcut.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <functional>

namespace quor::test {

/// Replaces the desktop's global-shortcuts portal, on a connection of its own. Ends with this object.
class ShortcutsPortal final : public QDBusVirtualObject {
public:
    ShortcutsPortal()
    {
        using namespace Qt::StringLiterals;
        qDBusRegisterMetaType<platform::PortalShortcut>();
        qDBusRegisterMetaType<QList<platform::PortalShortcut>>();
        bus_.connection().registerVirtualObject(path, this, QDBusConnection::SubPath);
        isServing = bus_.claim(u"org.freedesktop.portal.Desktop"_s) == platform::SessionBus::Claim::claimed;
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        using namespace Qt::StringLiterals;
        const auto arguments = message.arguments();
        if (message.member() == u"Close"_s) {
            if (message.path() == session)
                session.clear();
            else if (message.path().contains(u"/request/"_s))
                closedRequest = message.path();
            return true;
        }
        const auto options = qdbus_cast<QVariantMap>(arguments.last());
        const auto sender = message.service().mid(1).replace(u'.', u'_') + u'/';
        const auto request = path + u"/request/"_s + sender + options[u"handle_token"_s].toString();
        bus_.connection().send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        QVariantMap results;
        if (message.member() == u"CreateSession"_s) {
            ++sessionsMade;
            session = path + u"/session/"_s + sender + options[u"session_handle_token"_s].toString();
            results[u"session_handle"_s] = session;
        } else if (message.member() == u"BindShortcuts"_s) {
            asked = qdbus_cast<QList<platform::PortalShortcut>>(arguments[1]);
            results[u"shortcuts"_s] = QVariant::fromValue(bound());
        }
        answers.push_back([this, request, results] {
            send(request, u"org.freedesktop.portal.Request"_s, u"Response"_s, {code, results});
        });
        if (isPrompt)
            answer();
        return true;
    }
    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

    /// Answers all calls that are not answered yet.
    void answer()
    {
        for (const auto& each : std::exchange(answers, {}))
            each();
    }
    /// The user presses a shortcut, and lets it go.
    void press(const QString& shortcut) { report(u"Activated", shortcut); }
    void release(const QString& shortcut) { report(u"Deactivated", shortcut); }
    void endSession() { send(session, u"org.freedesktop.portal.Session", u"Closed", {}); }
    void changeTriggers(const QString& newTrigger)
    {
        trigger = newTrigger;
        send(path, interface, u"ShortcutsChanged",
            {QVariant::fromValue(QDBusObjectPath(session)), QVariant::fromValue(bound())});
    }

    bool isServing = false;
    bool isPrompt = true; ///< Answers at once.
    uint code = 0; ///< The code of the answers; 0 grants.
    QString trigger = QStringLiteral("Press "); ///< How the portal words triggers, before their name.
    QString left; ///< A shortcut that it does not bind.
    QList<platform::PortalShortcut> asked;
    QString session;
    QString closedRequest;
    int sessionsMade = 0;
    std::vector<std::function<void()>> answers;

private:
    [[nodiscard]] QList<platform::PortalShortcut> bound() const
    {
        QList<platform::PortalShortcut> shortcuts;
        for (const auto& shortcut : asked) {
            const auto preferred = shortcut.properties[QStringLiteral("preferred_trigger")].toString();
            if (shortcut.id != left)
                shortcuts.push_back(
                    {shortcut.id, {{QStringLiteral("trigger_description"), trigger + preferred}}});
        }
        return shortcuts;
    }
    void report(QStringView member, const QString& shortcut)
    {
        send(path, interface, member,
            {QVariant::fromValue(QDBusObjectPath(session)), shortcut, quint64(0), QVariantMap()});
    }
    void send(const QString& object, QStringView from, QStringView member, const QVariantList& arguments)
    {
        auto signal = QDBusMessage::createSignal(object, from.toString(), member.toString());
        signal.setArguments(arguments);
        bus_.connection().send(signal);
    }

    const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
    const QString interface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
    platform::SessionBus bus_;
};

} // namespace quor::test
