// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Fetching/FetchQuery.h"

#include <sqlite3.h>

#include <utility>

namespace quor::toolkit {

using Failure = SQLiteDatabase::Failure;

FetchQuery::FetchQuery(SQLiteDatabase& database, ObjectGraph& graph, std::size_t entity, bool isOverlaid)
    : database_(database)
    , graph_(graph)
    , entity_(entity)
    , description_(graph.entities()[entity])
    , isOverlaid_(isOverlaid)
{
}

Failure FetchQuery::fetch(const FetchRequest& request, std::vector<ObjectGraph::Record>& found)
{
    if (auto failure = readPredicate(request))
        return failure;
    QByteArray sql = selection(columns());
    if (isOverlaid_)
        sql = "SELECT * FROM (" + sql + ')';
    if (auto failure = order(request, sql))
        return failure;
    if (request.limit.value_or(0) > 0)
        sql += " LIMIT " + QByteArray::number(*request.limit);
    auto& statement = database_.cached(sql);
    predicate_.bind(statement);
    return collect(statement, found);
}

Failure FetchQuery::count(const FetchRequest& request, qint64& count)
{
    if (auto failure = readPredicate(request))
        return failure;
    auto& statement = database_.cached("SELECT count(*) FROM (" + selection("1") + ')');
    predicate_.bind(statement);
    const int result = statement.step();
    count = result == SQLITE_ROW ? statement.integer(0) : 0;
    Failure failure = result == SQLITE_ROW ? Failure() : database_.error(result);
    statement.reset();
    return failure;
}

Failure FetchQuery::load(qint64 number, ObjectGraph::Record& found)
{
    auto& statement = database_.cached(
        "SELECT " + columns() + " FROM main." + quoted(description_.name()) + " WHERE \"$id\" = ?1");
    statement.bind(1, number);
    std::vector<ObjectGraph::Record> records;
    auto failure = collect(statement, records);
    if (!records.empty())
        found = records.front();
    return failure;
}

Failure FetchQuery::readPredicate(const FetchRequest& request)
{
    if (!request.predicate)
        return std::nullopt;
    if (auto failure = predicate_.read(request.predicate->terms(), description_))
        return failure;
    return predicate_.provideLists(database_);
}

Failure FetchQuery::collect(SQLiteStatement& statement, std::vector<ObjectGraph::Record>& found)
{
    const auto& attributes = description_.attributes();
    int result = statement.step();
    for (; result == SQLITE_ROW; result = statement.step()) {
        auto record = graph_.provide(entity_, statement.integer(0));
        if (!record->isDirty()) {
            for (std::size_t i = 0; i < attributes.size(); ++i)
                record->values[i] = statement.value(static_cast<int>(i) + 1, attributes[i].type);
        }
        found.push_back(std::move(record));
    }
    Failure failure = result == SQLITE_DONE ? Failure() : database_.error(result);
    statement.reset();
    return failure;
}

QByteArray FetchQuery::selection(const QByteArray& columns) const
{
    const QByteArray table = quoted(description_.name());
    const QByteArray condition
        = predicate_.condition().isEmpty() ? QByteArray() : '(' + predicate_.condition() + ')';
    const QByteArray file = "SELECT " + columns + " FROM main." + table;
    if (!isOverlaid_)
        return condition.isEmpty() ? file : file + " WHERE " + condition;
    const QByteArray further = condition.isEmpty() ? QByteArray() : " AND " + condition;
    return file + R"( WHERE "$id" NOT IN (SELECT "$id" FROM temp.)" + table + ')' + further
        + " UNION ALL SELECT " + columns + " FROM temp." + table + " WHERE NOT \"$deleted\"" + further;
}

QByteArray FetchQuery::columns() const
{
    QByteArray names = "\"$id\"";
    for (const auto& attribute : description_.attributes())
        names += ',' + quoted(attribute.name);
    return names;
}

Failure FetchQuery::order(const FetchRequest& request, QByteArray& sql) const
{
    sql += " ORDER BY ";
    for (const auto& step : request.sortDescriptors) {
        if (!description_.index(step.key))
            return StoreError{StoreError::Kind::invalidRequest,
                QStringLiteral("%1 has no attribute \"%2\"").arg(description_.name(), step.key), 0};
        sql += quoted(step.key) + (step.isAscending ? "," : " DESC,");
    }
    sql += "\"$id\"";
    return std::nullopt;
}

} // namespace quor::toolkit
