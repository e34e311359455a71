// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/InterAppNotification.h"

namespace quor {

QString name(InterAppNotification notification)
{
    switch (notification) {
    case InterAppNotification::loginKill:
        return QStringLiteral("com.quor-app.Quor3LoginKillNotification");
    case InterAppNotification::helperKill:
        return QStringLiteral("com.quor-app.Quor3HelperKillNotification");
    case InterAppNotification::updatedMain:
        return QStringLiteral("com.quor-app.Quor3.Updated.Main");
    case InterAppNotification::updatedHelper:
        return QStringLiteral("com.quor-app.Quor3.Updated.Helper");
    }
    Q_UNREACHABLE();
}

} // namespace quor
