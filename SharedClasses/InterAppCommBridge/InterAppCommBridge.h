// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/GroupStorage.h"
#include "InterAppCommBridge/InterAppNotification.h"
#include "Platform/Services/DistributedNotificationCenter.h"

#include <QString>

namespace quor {

/// The whole exchange between the helper and the main application: the shared suite for what is
/// said, and notifications to say that something was.
///
/// Borrows the notification centre, which must outlive it. Both operations leave a line in the error
/// log, where that is on. Main thread only.
class InterAppCommBridge final {
public:
    const QString mainAppBundleID = QStringLiteral("com.quor-app.Quor3-macOS");
    const QString loginItemBundleID = QStringLiteral("QX77Z4012M.com.quor-app.Quor3LoginItem");
    const QString helperItemBundleID = QStringLiteral("com.quor-app.Quor3-MenubarHelper");
    const GroupStorage groupStorage;

    explicit InterAppCommBridge(platform::DistributedNotificationCenter& center);

    void postNotification(InterAppNotification notification) const;

    /// The caller keeps the token and removes it at the centre when done; the bridge keeps nothing.
    [[nodiscard]] platform::DistributedNotificationCenter::ObserverToken registerForNotification(
        InterAppNotification notification, platform::DistributedNotificationCenter::Handler handler) const;

private:
    platform::DistributedNotificationCenter& center_;
};

} // namespace quor
