// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Objects/ObjectGraph.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"
#include "ToolKit/CoreData/Store/SaveOutcome.h"

#include <QByteArray>

#include <map>
#include <vector>

namespace quor::toolkit {

/// Writes all changes of a graph to the file, or nothing if that fails. Of saved records it writes only the
/// attributes that were changed, so that two writers can change different attributes of the same record. An
/// object saves once.
class SaveTransaction final {
public:
    SaveTransaction(SQLiteDatabase& database, ObjectGraph& graph);

    SaveOutcome run();

private:
    [[nodiscard]] SQLiteDatabase::Failure write();
    [[nodiscard]] SQLiteDatabase::Failure reserveNumbers();
    [[nodiscard]] SQLiteDatabase::Failure insertAll();
    [[nodiscard]] SQLiteDatabase::Failure update(const ObjectGraph::Record& record);
    [[nodiscard]] SQLiteDatabase::Failure remove(const ManagedRecord& record);
    [[nodiscard]] SQLiteDatabase::Failure finish(SQLiteStatement& statement, const ManagedRecord& record);
    [[nodiscard]] SQLiteStatement& prepared(const QByteArray& sql);

    SQLiteDatabase& database_;
    ObjectGraph& graph_;
    std::map<QByteArray, SQLiteStatement> statements_;
    std::map<std::size_t, qint64> nextNumbers_; ///< by entity
    std::vector<qint64> numbers_; ///< the numbers of the inserted records
    std::vector<ObjectGraph::Record> dropped_;
};

} // namespace quor::toolkit
