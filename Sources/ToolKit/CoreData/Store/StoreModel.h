// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/EntityDescription.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <vector>

namespace quor::toolkit::StoreModel {

/// The tables of a store file: "$store" with the identity of the file, "$entity" with the next free number of
/// each entity, and one table for each entity with the number ("$id") and the attributes of each record.
/// Columns have no type, so that SQLite does not convert values.

constexpr int applicationID = 0x51756F72; ///< "Quor"; marks a database as a store
constexpr int formatVersion = 1;

/// Fails if a name of an entity or attribute cannot be a name of a table or column, or is used twice.
[[nodiscard]] SQLiteDatabase::Failure check(const std::vector<EntityDescription>& entities);

/// Creates missing tables, columns and indexes in one transaction. Changes nothing else in the file.
[[nodiscard]] SQLiteDatabase::Failure apply(
    SQLiteDatabase& database, const std::vector<EntityDescription>& entities);

} // namespace quor::toolkit::StoreModel
