// SPDX-License-Identifier: MIT
#include "Peer/CommandLine/PeerClient.h"

#include "Peer/Service/PeerService.h"

#include <QDBusError>
#include <QDBusMessage>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor::peer {

namespace {

// The error of a call that must not start its service, if nobody owns the name. Qt has no code for it.
constexpr auto noOwnerError = "org.freedesktop.DBus.Error.NameHasNoOwner"_L1;
constexpr std::chrono::milliseconds answerLimit = 10s;

QString errorText(const QDBusMessage& reply)
{
    if (reply.errorName() == PeerService::refusedError)
        return reply.errorMessage();
    if (reply.errorName() == noOwnerError)
        return u"no quor-peer is serving on this session bus; run \"quor-peer serve\" first"_s;
    switch (QDBusError(reply).type()) {
    case QDBusError::UnknownObject:
    case QDBusError::UnknownInterface:
    case QDBusError::UnknownMethod:
        return u"the main application on this session bus is not quor-peer, or another version of it"_s;
    default:
        return reply.errorMessage();
    }
}

} // namespace

PeerClient::Reply PeerClient::call(const QString& method, const QVariantList& arguments) const
{
    if (!bus_.isConnected())
        return {{}, u"there is no session bus"_s};
    auto message = QDBusMessage::createMethodCall(
        PeerService::serviceName, PeerService::path, PeerService::interfaceName, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    const QDBusMessage reply = bus_.connection().call(message, QDBus::Block, int(answerLimit.count()));
    if (reply.type() == QDBusMessage::ErrorMessage)
        return {{}, errorText(reply)};
    return {reply.arguments().value(0).toString(), {}};
}

} // namespace quor::peer
