// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor {

/// The notifications that the applications post to each other. None carries a payload: it only
/// says that the suite is to be read, or that the other side is to quit.
enum class InterAppNotification {
    loginKill, ///< for the login item; the helper neither posts nor observes it
    helperKill, ///< the helper is to quit
    updatedMain, ///< the main application is to read the suite
    updatedHelper, ///< the helper is to read the suite
};

/// The notification's name on the wire.
[[nodiscard]] QString name(InterAppNotification notification);

} // namespace quor
