// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/EntityDescription.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <vector>

namespace quor::toolkit::StoreModel {

/// The entities as tables of a file: "$store" with the file's identity, "$entity" with the next number of
/// each entity, and a table for each entity with its number, "$id", and its attributes. Columns have no
/// type, so that SQLite keeps each value as it was given.

constexpr int applicationID = 0x51756F72; ///< "Quor"; tells a store from the databases of others
constexpr int formatVersion = 1;

/// Whether the entities can be tables at all.
[[nodiscard]] SQLiteDatabase::Failure check(const std::vector<EntityDescription>& entities);

/// Makes or extends the tables, where anything is missing, in one transaction. Whatever else is in the
/// file stays as it is.
[[nodiscard]] SQLiteDatabase::Failure apply(
    SQLiteDatabase& database, const std::vector<EntityDescription>& entities);

} // namespace quor::toolkit::StoreModel
