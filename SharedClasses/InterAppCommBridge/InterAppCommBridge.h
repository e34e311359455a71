// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/GroupStorage.h"
#include "InterAppCommBridge/InterAppNotification.h"
#include "Platform/Services/DistributedNotificationCenter.h"

#include <QString>

namespace quor {

/// The whole exchange between the helper and the main application: a shared suite for the data, and
/// notifications that the suite has changed.
///
/// Borrows the notification centre, which must outlive it. Both functions write a line to the error log if
/// that is enabled. Main thread only.
class InterAppCommBridge final {
public:
    using GroupStorage = quor::GroupStorage;

    const QString mainAppBundleID = QStringLiteral("com.quor-app.Quor3-macOS");
    const QString loginItemBundleID = QStringLiteral("QX77Z4012M.com.quor-app.Quor3LoginItem");
    const QString helperItemBundleID = QStringLiteral("com.quor-app.Quor3-MenubarHelper");
    const GroupStorage groupStorage;

    explicit InterAppCommBridge(platform::DistributedNotificationCenter& center);

    void postNotification(InterAppNotification notification) const;

    /// Calls `handler` for each notification until the caller removes the token at the notification centre.
    [[nodiscard]] platform::DistributedNotificationCenter::ObserverToken registerForNotification(
        InterAppNotification notification, platform::DistributedNotificationCenter::Handler handler) const;

private:
    platform::DistributedNotificationCenter& center_;
};

} // namespace quor
