// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Fetching/SortDescriptor.h"
#include "ToolKit/CoreData/Predicates/Predicate.h"

#include <QString>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// What to fetch: the records of one entity that match, in this order, at most so many. A limit of 0, as
/// an absent one, sets no limit.
struct FetchRequest {
    QString entityName;
    std::optional<Predicate> predicate = std::nullopt;
    std::vector<SortDescriptor> sortDescriptors = {};
    std::optional<int> limit = std::nullopt;
};

} // namespace quor::toolkit
