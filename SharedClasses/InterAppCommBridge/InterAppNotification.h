// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor {

/// The notifications that the applications post to each other. None has a payload.
enum class InterAppNotification {
    loginKill, ///< For the login item. The helper neither posts nor observes it.
    helperKill, ///< The helper should quit.
    updatedMain, ///< The main application should read the suite.
    updatedHelper, ///< The helper should read the suite.
};

/// Returns the notification's name on the bus.
[[nodiscard]] QString name(InterAppNotification notification);

} // namespace quor
