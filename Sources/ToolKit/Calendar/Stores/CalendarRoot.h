// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Stores/EventStoreOptions.h"

#include <QByteArray>

namespace quor::toolkit {

/// The folder of the sources, in the file system's encoding. Empty for a user without a home.
[[nodiscard]] QByteArray calendarRoot(const EventStoreOptions& options);

} // namespace quor::toolkit
