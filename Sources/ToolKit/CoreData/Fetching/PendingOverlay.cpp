// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Fetching/PendingOverlay.h"

#include "ToolKit/CoreData/SQLite/SQLiteTransaction.h"

#include <utility>

namespace quor::toolkit {

using Failure = SQLiteDatabase::Failure;

/// The statements that change the table of one entity during an update.
struct PendingOverlay::Table {
    Table(const SQLiteDatabase& database, const EntityDescription& entity)
        : put(database.prepare(putSQL(entity)))
        , remove(database.prepare("DELETE FROM temp." + quoted(entity.name()) + " WHERE \"$id\" = ?1"))
    {
    }

    static QByteArray putSQL(const EntityDescription& entity)
    {
        QByteArray sql = "INSERT OR REPLACE INTO temp." + quoted(entity.name()) + " VALUES(?1,?2";
        for (std::size_t i = 0; i < entity.attributes().size(); ++i)
            sql += ",?" + QByteArray::number(i + 3);
        return sql + ')';
    }

    static QByteArray creationSQL(const EntityDescription& entity)
    {
        const QByteArray table = quoted(entity.name());
        QByteArray columns;
        QByteArray indexes;
        for (std::size_t i = 0; i < entity.attributes().size(); ++i) {
            const auto& attribute = entity.attributes()[i];
            columns += ',' + quoted(attribute.name);
            if (attribute.isIndexed)
                indexes += "CREATE INDEX IF NOT EXISTS temp."
                    + quoted(QStringLiteral("$index %1 %2").arg(i).arg(entity.name())) + " ON " + table + '('
                    + quoted(attribute.name) + ");";
        }
        return "CREATE TABLE IF NOT EXISTS temp." + table + R"(("$id" INTEGER PRIMARY KEY, "$deleted")"
            + columns + ");" + indexes;
    }

    Failure write(const SQLiteDatabase& database, const ManagedRecord& record)
    {
        auto& statement = record.isDirty() ? put : remove;
        statement.bind(1, record.number);
        if (record.isDirty()) {
            statement.bind(2, record.state == ManagedRecord::State::deleting);
            for (std::size_t i = 0; i < record.values.size(); ++i)
                statement.bind(static_cast<int>(i) + 3, record.values[i]);
        }
        return database.finish(statement);
    }

    SQLiteStatement put;
    SQLiteStatement remove;
};

Failure PendingOverlay::update(SQLiteDatabase& database, ObjectGraph& graph)
{
    if (graph.awaitingOverlay().empty())
        return std::nullopt;
    SQLiteTransaction transaction(database);
    if (auto failure = transaction.beginReading())
        return failure;
    std::map<std::size_t, Table> tables;
    std::set<std::size_t> covered;
    for (const std::size_t entity : covered_) {
        if (!isStale_)
            covered.insert(entity);
        else if (auto failure = database.run("DELETE FROM temp." + quoted(graph.entities()[entity].name())))
            return failure;
    }
    for (const auto& record : graph.awaitingOverlay()) {
        const EntityDescription& entity = graph.entity(*record);
        if (!covered_.contains(record->entity) && covered.insert(record->entity).second) {
            if (auto failure = database.run(Table::creationSQL(entity)))
                return failure;
        }
        covered.insert(record->entity);
        auto& table = tables.try_emplace(record->entity, database, entity).first->second;
        if (auto failure = table.write(database, *record))
            return failure;
    }
    if (auto failure = transaction.commit())
        return failure;
    graph.setOverlaid();
    covered_ = std::move(covered);
    isStale_ = false;
    return std::nullopt;
}

} // namespace quor::toolkit
