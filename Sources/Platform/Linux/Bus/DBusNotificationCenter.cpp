// SPDX-License-Identifier: MIT
#include "Platform/Linux/Bus/DBusNotificationCenter.h"

#include "Platform/Linux/Bus/NotificationChannel.h"
#include "Platform/Linux/Bus/SessionBus.h"

#include <QDBusMessage>

#include <utility>

namespace quor::platform {

DBusNotificationCenter::DBusNotificationCenter(SessionBus& bus)
    : bus_(bus)
{
}

DBusNotificationCenter::~DBusNotificationCenter() = default;

void DBusNotificationCenter::post(const QString& name)
{
    bus_.connection().send(NotificationChannel::signalFor(name));
}

DistributedNotificationCenter::ObserverToken DBusNotificationCenter::addObserver(
    const QString& name, Handler handler)
{
    auto& channel = channels_[name];
    if (!channel)
        channel = std::make_unique<NotificationChannel>(bus_.connection(), name);
    const auto token = ObserverToken(++lastToken_);
    channel->add(token, std::move(handler));
    return token;
}

void DBusNotificationCenter::removeObserver(ObserverToken token)
{
    for (const auto& [name, channel] : channels_)
        channel->remove(token);
    std::erase_if(channels_, [](const auto& entry) { return entry.second->isEmpty(); });
}

} // namespace quor::platform
