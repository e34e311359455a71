// SPDX-License-Identifier: MIT
#include "Platform/Linux/HotKeys/PortalRequest.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

constexpr auto requestInterface = "org.freedesktop.portal.Request"_L1;

} // namespace

QString nextPortalToken()
{
    static quint64 last = 0;
    return u"quor%1"_s.arg(++last);
}

QString portalObjectPath(const QDBusConnection& connection, const QString& kind, const QString& token)
{
    const QString sender = connection.baseService().mid(1).replace(u'.', u'_');
    return QLatin1String(portalPath) + u'/' + kind + u'/' + sender + u'/' + token;
}

void closePortalObject(const QDBusConnection& connection, const QString& path, const QString& interface)
{
    auto call = QDBusMessage::createMethodCall(QLatin1String(portalService), path, interface, u"Close"_s);
    call.setAutoStartService(false);
    connection.send(call);
}

PortalRequest::PortalRequest(const QDBusConnection& connection, const QString& interface,
    const QString& method, const QVariantList& arguments, QVariantMap options, Answered answered)
    : connection_(connection)
    , answered_(std::move(answered))
{
    const QString token = nextPortalToken();
    path_ = portalObjectPath(connection, u"request"_s, token);
    // Before the call, as the answer can come before its reply.
    connection_.connect({}, path_, requestInterface, u"Response"_s, this, SLOT(responded(QDBusMessage)));
    options[u"handle_token"_s] = token;
    auto call = QDBusMessage::createMethodCall(
        QLatin1String(portalService), QLatin1String(portalPath), interface, method);
    call.setArguments(arguments + QVariantList{options});
    constexpr int noLimit = std::numeric_limits<int>::max();
    auto* reply = new QDBusPendingCallWatcher(connection_.asyncCall(call, noLimit), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
        reply->deleteLater();
        if (reply->isError())
            answer(Outcome::noService, {});
    });
}

PortalRequest::~PortalRequest()
{
    if (answered_)
        closePortalObject(connection_, path_, requestInterface);
}

void PortalRequest::responded(const QDBusMessage& response)
{
    const auto arguments = response.arguments();
    const bool isGranted = arguments.size() == 2 && arguments[0] == 0U;
    answer(isGranted ? Outcome::granted : Outcome::declined,
        isGranted ? qdbus_cast<QVariantMap>(arguments[1]) : QVariantMap());
}

void PortalRequest::answer(Outcome outcome, const QVariantMap& results)
{
    if (const auto answered = std::exchange(answered_, {}))
        answered(outcome, results);
}

} // namespace quor::platform
