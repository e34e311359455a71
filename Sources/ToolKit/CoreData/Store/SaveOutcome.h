// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Objects/ManagedObject.h"
#include "ToolKit/CoreData/Store/StoreError.h"

#include <optional>
#include <vector>

namespace quor::toolkit {

/// What came of a save: everything was written and is on the disk, or nothing was and all changes are
/// pending as before, for another try.
struct [[nodiscard]] SaveOutcome {
    std::optional<StoreError> error = std::nullopt;

    /// Records that were changed here and meanwhile deleted elsewhere. Deletion wins: they read as deleted
    /// now, and hold the values that were not written.
    std::vector<ManagedObject> dropped = {};

    explicit operator bool() const { return !error; }
};

} // namespace quor::toolkit
