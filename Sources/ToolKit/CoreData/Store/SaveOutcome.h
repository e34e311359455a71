// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Objects/ManagedObject.h"
#include "ToolKit/CoreData/Store/StoreError.h"

#include <optional>
#include <vector>

namespace quor::toolkit {

/// The result of a save. Either all changes were written and are on the disk, or nothing was written and all
/// changes are still pending.
struct [[nodiscard]] SaveOutcome {
    std::optional<StoreError> error = std::nullopt;

    /// Records that were changed here but had been deleted by another context or process. They are now
    /// deleted here too, and still have the values that were not written.
    std::vector<ManagedObject> dropped = {};

    /// Whether the save succeeded.
    explicit operator bool() const { return !error; }
};

} // namespace quor::toolkit
