// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Fetching/SortDescriptor.h"
#include "ToolKit/CoreData/Predicates/Predicate.h"

#include <QString>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// A request for the records of one entity that match a predicate. Without a predicate all records match.
/// Without sort descriptors the records are in the order of insertion. A limit of 0 or less means no limit,
/// like an absent one.
struct FetchRequest {
    QString entityName;
    std::optional<Predicate> predicate = std::nullopt;
    std::vector<SortDescriptor> sortDescriptors = {};
    std::optional<int> limit = std::nullopt;
};

} // namespace quor::toolkit
