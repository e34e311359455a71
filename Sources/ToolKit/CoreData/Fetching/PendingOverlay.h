// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Objects/ObjectGraph.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <map>
#include <set>

namespace quor::toolkit {

/// The pending changes of a graph as tables of the connection's own, in memory, so that SQLite itself finds
/// and sorts records by values that were not saved yet. Such a table hides the file's rows that it has
/// numbers of. It costs a write per change, when the next fetch comes, and touches no file and no lock.
class PendingOverlay final {
public:
    /// Brings the tables up to date with the graph.
    [[nodiscard]] SQLiteDatabase::Failure update(SQLiteDatabase& database, ObjectGraph& graph);

    /// Nothing is pending any more.
    void reset() { isStale_ = true; }

    /// Whether there is anything of the entity, as of the last update.
    [[nodiscard]] bool covers(std::size_t entity) const { return !isStale_ && covered_.contains(entity); }

private:
    struct Table;

    std::set<std::size_t> covered_;
    bool isStale_ = false;
};

} // namespace quor::toolkit
