// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Stores/EventStoreOptions.h"

#include <QByteArray>

namespace quor::toolkit {

/// Returns the folder of the sources, in the file system's encoding. Empty if the user has no home folder.
[[nodiscard]] QByteArray calendarRoot(const EventStoreOptions& options);

} // namespace quor::toolkit
