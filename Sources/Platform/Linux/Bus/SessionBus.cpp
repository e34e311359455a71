// SPDX-License-Identifier: MIT
#include "Platform/Linux/Bus/SessionBus.h"

#include <QDBusMessage>
#include <QDBusReply>
#include <QFile>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor::platform {

namespace {

constexpr std::chrono::milliseconds claimLimit = 5s;

// Flags and replies of the bus's method RequestName.
constexpr uint doNotQueue = 4;
enum RequestNameReply : uint { primaryOwner = 1, alreadyOwner = 4 };

QDBusConnection connectTo(const QString& address, const QString& name)
{
    return address.isEmpty() ? QDBusConnection(name) : QDBusConnection::connectToBus(address, name);
}

} // namespace

QString SessionBus::sessionAddress()
{
    // With an autolaunch address, connecting would start a bus.
    auto given = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!given.isEmpty() && !given.startsWith("autolaunch:"_L1))
        return given;
    const auto runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const auto socket = runtimeFolder + "/bus"_L1;
    if (runtimeFolder.isEmpty() || !QFile::exists(socket))
        return {};
    return "unix:path="_L1 + QString::fromLatin1(QFile::encodeName(socket).toPercentEncoding("/*", "~"));
}

SessionBus::SessionBus(const QString& address)
    : connection_(connectTo(address, u"quor-session-%1"_s.arg(reinterpret_cast<quintptr>(this))))
{
    connection_.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
        u"Disconnected"_s, this, SIGNAL(disconnected()));
}

SessionBus::~SessionBus()
{
    QDBusConnection::disconnectFromBus(connection_.name());
}

SessionBus::Claim SessionBus::claim(const QString& name)
{
    const auto request = callOfBus(u"RequestName"_s, {name, doNotQueue});
    const QDBusReply<uint> reply = connection_.call(request, QDBus::Block, int(claimLimit.count()));
    if (!reply.isValid())
        return Claim::failed;
    const bool isOwner = reply.value() == primaryOwner || reply.value() == alreadyOwner;
    return isOwner ? Claim::claimed : Claim::taken;
}

QDBusMessage SessionBus::callOfBus(const QString& method, const QVariantList& arguments)
{
    constexpr auto service = "org.freedesktop.DBus"_L1; // also the name of the interface
    auto call = QDBusMessage::createMethodCall(service, "/org/freedesktop/DBus"_L1, service, method);
    call.setArguments(arguments);
    return call;
}

} // namespace quor::platform
