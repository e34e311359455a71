// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Platform/Linux/Bus/DBusNotificationCenter.h"
#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Preferences/UserDefaults.h"

#include <QByteArray>

namespace quor::test {

/// The main application's side of the exchange. It can also publish malformed bytes.
class Publisher final {
public:
    Publisher()
        : center(bus)
        , bridge(center)
        , observer(
              center.addObserver(name(InterAppNotification::updatedMain), [this](const auto&) { ++posts; }))
    {
    }

    void publish(const QByteArray& timerData) const
    {
        platform::UserDefaults::suiteOrStandard(bridge.groupStorage.groupID)
            .setObject(timerData, QStringLiteral("timerData"));
        bridge.postNotification(InterAppNotification::updatedHelper);
    }
    void publish(const MenubarStatusItemData& data) const
    {
        bridge.groupStorage.setTimerData(data);
        bridge.postNotification(InterAppNotification::updatedHelper);
    }
    void request(GroupStorage::Action action) const
    {
        bridge.groupStorage.setAction(action);
        bridge.postNotification(InterAppNotification::updatedHelper);
    }

    platform::SessionBus bus;
    platform::DBusNotificationCenter center;
    InterAppCommBridge bridge;
    int posts = 0; ///< How many posts of `updatedMain` have arrived.
    platform::DistributedNotificationCenter::ObserverToken observer;
};

/// A record that shows the day's total and a ring or dot in `color`.
inline MenubarStatusItemData totalOf(double seconds, std::optional<std::uint64_t> color = std::nullopt)
{
    MenubarStatusItemData data;
    data.inactiveTotalTimeToday = seconds;
    data.activeColor = color;
    data.trackerActive = color.has_value();
    data.menuBarShowDailyTotal = true;
    return data;
}

} // namespace quor::test
