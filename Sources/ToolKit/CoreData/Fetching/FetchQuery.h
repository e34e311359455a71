// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Fetching/FetchRequest.h"
#include "ToolKit/CoreData/Objects/ObjectGraph.h"
#include "ToolKit/CoreData/Predicates/PredicateSQL.h"

#include <QByteArray>

#include <vector>

namespace quor::toolkit {

/// A fetch request on its way: as SQL over the file and, where the entity has pending changes, over the
/// overlay of them. Lives for one fetch, and refers to the request.
class FetchQuery final {
public:
    /// `isOverlaid`: the overlay covers the entity.
    FetchQuery(SQLiteDatabase& database, ObjectGraph& graph, std::size_t entity, bool isOverlaid);

    /// Brings what was found into the graph. Records without changes take over the values of the file.
    [[nodiscard]] SQLiteDatabase::Failure fetch(
        const FetchRequest& request, std::vector<ObjectGraph::Record>& found);

    /// Neither order nor limit count.
    [[nodiscard]] SQLiteDatabase::Failure count(const FetchRequest& request, qint64& count);

    /// The record of that number in the file; none if there is no such row.
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
