// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/DistributedNotificationCenter.h"

#include <map>
#include <memory>

namespace quor::platform {

class NotificationChannel;
class SessionBus;

/// Distributed notifications as signals on the session bus: path
/// `/com/quor_app/DistributedNotifications`, interface `com.quor_app.DistributedNotifications`,
/// member `Posted`, with the notification's name as the only argument.
///
/// There is one match rule for each observed name, so the bus delivers only observed notifications. Without
/// a connection, posts are lost and no notification arrives. Borrows the bus, which must outlive this object.
/// Main thread only.
class DBusNotificationCenter final : public DistributedNotificationCenter {
public:
    explicit DBusNotificationCenter(SessionBus& bus);
    ~DBusNotificationCenter() override;

    void post(const QString& name) override;
    [[nodiscard]] ObserverToken addObserver(const QString& name, Handler handler) override;
    void removeObserver(ObserverToken token) override;

private:
    SessionBus& bus_;
    std::map<QString, std::unique_ptr<NotificationChannel>> channels_;
    std::uint64_t lastToken_ = 0;
};

} // namespace quor::platform
