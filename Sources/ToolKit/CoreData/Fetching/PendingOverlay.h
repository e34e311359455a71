// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Objects/ObjectGraph.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <map>
#include <set>

namespace quor::toolkit {

/// The pending changes of a graph as temporary tables of the connection, so that SQLite can find and sort
/// records by values that are not saved yet. A row of such a table replaces the row of the file with the same
/// number. The tables are in memory: they need no file and no lock. Each change costs one insert, at the next
/// fetch.
class PendingOverlay final {
public:
    /// Writes the changes since the last update to the tables. Call it before each query.
    [[nodiscard]] SQLiteDatabase::Failure update(SQLiteDatabase& database, ObjectGraph& graph);

    /// Empties the tables. Call it after a save or a rollback.
    void reset() { isStale_ = true; }

    /// Whether there is a table with changes of the entity, as of the last update.
    [[nodiscard]] bool covers(std::size_t entity) const { return !isStale_ && covered_.contains(entity); }

private:
    struct Table;

    std::set<std::size_t> covered_; ///< the entities that have a table
    bool isStale_ = false; ///< the rows of all tables are outdated
};

} // namespace quor::toolkit
