// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Fetching/FetchRequest.h"
#include "ToolKit/CoreData/Objects/ObjectGraph.h"
#include "ToolKit/CoreData/Predicates/PredicateSQL.h"

#include <QByteArray>

#include <vector>

namespace quor::toolkit {

/// Runs one fetch request as SQL, over the file and, if the entity has pending changes, over their overlay.
/// An object serves one request, which must outlive it.
class FetchQuery final {
public:
    /// `isOverlaid` says whether the query has to include the overlay; see `PendingOverlay::covers`.
    FetchQuery(SQLiteDatabase& database, ObjectGraph& graph, std::size_t entity, bool isOverlaid);

    /// Appends the matching records of the graph to `found`. Records that have no changes get the values of
    /// the file.
    [[nodiscard]] SQLiteDatabase::Failure fetch(
        const FetchRequest& request, std::vector<ObjectGraph::Record>& found);

    /// Sets `count` to the number of matching records. Ignores the sort order and the limit.
    [[nodiscard]] SQLiteDatabase::Failure count(const FetchRequest& request, qint64& count);

    /// Sets `found` to the record with that number. Leaves it null if the file has no such record.
    [[nodiscard]] SQLiteDatabase::Failure load(qint64 number, ObjectGraph::Record& found);

private:
    [[nodiscard]] SQLiteDatabase::Failure readPredicate(const FetchRequest& request);
    [[nodiscard]] SQLiteDatabase::Failure collect(
        SQLiteStatement& statement, std::vector<ObjectGraph::Record>& found);
    [[nodiscard]] QByteArray selection(const QByteArray& columns) const; ///< "SELECT ... WHERE ..."
    [[nodiscard]] QByteArray columns() const;
    [[nodiscard]] SQLiteDatabase::Failure order(const FetchRequest& request, QByteArray& sql) const;

    SQLiteDatabase& database_;
    ObjectGraph& graph_;
    const std::size_t entity_;
    const EntityDescription& description_;
    const bool isOverlaid_;
    PredicateSQL predicate_;
};

} // namespace quor::toolkit
