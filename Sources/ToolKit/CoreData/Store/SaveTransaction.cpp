// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Store/SaveTransaction.h"

#include "ToolKit/CoreData/SQLite/SQLiteTransaction.h"

#include <sqlite3.h>

namespace quor::toolkit {

using Failure = SQLiteDatabase::Failure;
using State = ManagedRecord::State;

namespace {

QByteArray insertion(const EntityDescription& entity)
{
    QByteArray columns = "\"$id\"";
    QByteArray places = "?1";
    for (std::size_t i = 0; i < entity.attributes().size(); ++i) {
        columns += ',' + quoted(entity.attributes()[i].name);
        places += ",?" + QByteArray::number(i + 2);
    }
    return "INSERT INTO main." + quoted(entity.name()) + '(' + columns + ") VALUES(" + places + ')';
}

} // namespace

SaveTransaction::SaveTransaction(SQLiteDatabase& database, ObjectGraph& graph)
    : database_(database)
    , graph_(graph)
{
}

SaveOutcome SaveTransaction::run()
{
    if (!graph_.hasChanges())
        return {};
    if (auto failure = write())
        return {.error = failure};
    SaveOutcome outcome;
    for (const auto& record : dropped_) {
        graph_.setDeleted(*record);
        outcome.dropped.emplace_back(record);
    }
    graph_.setSaved(numbers_);
    return outcome;
}

Failure SaveTransaction::write()
{
    SQLiteTransaction transaction(database_);
    if (auto failure = transaction.beginWriting())
        return failure;
    if (database_.hasMoved())
        return StoreError{StoreError::Kind::cannotOpen,
            QStringLiteral("the file was removed or replaced after it was opened"), 0};
    if (auto failure = reserveNumbers())
        return failure;
    if (auto failure = insertAll())
        return failure;
    for (const auto& record : graph_.changed()) {
        Failure failure;
        if (record->state == State::deleting)
            failure = remove(*record);
        else if (record->isDirty())
            failure = update(record);
        if (failure)
            return failure;
    }
    return transaction.commit();
}

// Numbers come from a counter in the file, because SQLite would use the number of a deleted row again.
Failure SaveTransaction::reserveNumbers()
{
    std::map<std::size_t, qint64> counts;
    for (const auto& record : graph_.inserted())
        counts[record->entity] += record->state == State::inserted ? 1 : 0;
    for (const auto& [entity, count] : counts) {
        auto& statement
            = prepared("UPDATE main.\"$entity\" SET next = next + ?1 WHERE name = ?2 RETURNING next - ?1");
        statement.bind(1, count);
        statement.bind(2, graph_.entities()[entity].name());
        const int result = statement.step();
        if (result != SQLITE_ROW && result != SQLITE_DONE)
            return database_.error(result);
        const qint64 next = result == SQLITE_ROW ? statement.integer(0) : 0;
        if (next < 1 || next > ObjectGraph::firstTemporary - count)
            return StoreError{StoreError::Kind::corrupt,
                QStringLiteral("the next number of an entity is missing or out of range"), 0};
        nextNumbers_[entity] = next;
        if (auto failure = database_.finish(statement))
            return failure;
    }
    return std::nullopt;
}

Failure SaveTransaction::insertAll()
{
    numbers_.assign(graph_.inserted().size(), 0);
    std::vector<SQLiteStatement*> statements(graph_.entities().size());
    for (std::size_t i = 0; i < numbers_.size(); ++i) {
        const ManagedRecord& record = *graph_.inserted()[i];
        if (record.state != State::inserted)
            continue;
        auto*& statement = statements[record.entity];
        if (!statement)
            statement = &prepared(insertion(graph_.entity(record)));
        numbers_[i] = nextNumbers_[record.entity]++;
        statement->bind(1, numbers_[i]);
        int parameter = 1;
        for (const AttributeValue& value : record.values)
            statement->bind(++parameter, value);
        if (auto failure = finish(*statement, record))
            return failure;
    }
    return std::nullopt;
}

Failure SaveTransaction::update(const ObjectGraph::Record& record)
{
    const EntityDescription& entity = graph_.entity(*record);
    QByteArray assignments;
    int parameter = 1;
    for (const auto& [index, original] : record->originals) {
        assignments += assignments.isEmpty() ? "" : ",";
        assignments += quoted(entity.attributes()[index].name) + "=?" + QByteArray::number(++parameter);
    }
    auto& statement
        = prepared("UPDATE main." + quoted(entity.name()) + " SET " + assignments + " WHERE \"$id\" = ?1");
    statement.bind(1, record->number);
    parameter = 1;
    for (const auto& [index, original] : record->originals)
        statement.bind(++parameter, record->values[index]);
    auto failure = finish(statement, *record);
    if (!failure && database_.changes() == 0)
        dropped_.push_back(record);
    return failure;
}

Failure SaveTransaction::remove(const ManagedRecord& record)
{
    auto& statement
        = prepared("DELETE FROM main." + quoted(graph_.entity(record).name()) + " WHERE \"$id\" = ?1");
    statement.bind(1, record.number);
    return finish(statement, record);
}

Failure SaveTransaction::finish(SQLiteStatement& statement, const ManagedRecord& record)
{
    auto failure = database_.finish(statement);
    if (failure)
        failure->description += QStringLiteral(" (%1)").arg(graph_.objectID(record).URIRepresentation());
    return failure;
}

SQLiteStatement& SaveTransaction::prepared(const QByteArray& sql)
{
    const auto found = statements_.find(sql);
    return found != statements_.end() ? found->second
                                      : statements_.emplace(sql, database_.prepare(sql)).first->second;
}

} // namespace quor::toolkit
