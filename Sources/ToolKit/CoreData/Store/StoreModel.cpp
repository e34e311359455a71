// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Store/StoreModel.h"

#include "ToolKit/CoreData/SQLite/SQLiteTransaction.h"

#include <QUuid>

#include <set>
#include <sqlite3.h>

namespace quor::toolkit::StoreModel {

namespace {

using Failure = SQLiteDatabase::Failure;
using Names = std::set<QByteArray>;

// SQLite ignores the case of ASCII letters in names.
QByteArray folded(const QString& name)
{
    QByteArray bytes = name.toUtf8();
    for (char& byte : bytes) {
        if (byte >= 'A' && byte <= 'Z')
            byte = static_cast<char>(byte - 'A' + 'a');
    }
    return bytes;
}

Failure checkName(const QString& name, Names& taken)
{
    const auto invalid = [&name](const char* reason) {
        return StoreError{
            StoreError::Kind::invalidModel, QStringLiteral("\"%1\" %2").arg(name, QLatin1String(reason)), 0};
    };
    const QByteArray bytes = folded(name);
    if (bytes.isEmpty())
        return invalid("is empty");
    if (bytes.contains('\0') || !QStringView(name).isValidUtf16())
        return invalid("contains NUL or half of a surrogate pair");
    if (bytes.startsWith('$') || bytes.startsWith("sqlite_"))
        return invalid("is reserved");
    if (!taken.insert(bytes).second)
        return invalid("is used twice");
    return std::nullopt;
}

Failure names(SQLiteDatabase& database, const QByteArray& sql, Names& found)
{
    auto statement = database.prepare(sql);
    int result = statement.step();
    for (; result == SQLITE_ROW; result = statement.step())
        found.insert(folded(statement.text(0)));
    return result == SQLITE_DONE ? Failure() : database.error(result);
}

QString indexName(const EntityDescription& entity, const AttributeDescription& attribute)
{
    // Names can contain blanks. The length of the first makes the result unique.
    return QStringLiteral("$index %1 %2 %3").arg(entity.name().size()).arg(entity.name(), attribute.name);
}

/// Collects the statements that add missing tables, columns and indexes.
class Migration {
public:
    explicit Migration(SQLiteDatabase& database)
        : database_(database)
    {
    }

    [[nodiscard]] Failure plan(const std::vector<EntityDescription>& entities)
    {
        if (auto failure = names(database_, "SELECT name FROM sqlite_schema", present_))
            return failure;
        if (!present_.contains("$store"))
            createStore();
        for (const auto& entity : entities) {
            if (auto failure = plan(entity))
                return failure;
        }
        return std::nullopt;
    }

    /// Empty if nothing is missing.
    [[nodiscard]] const QByteArray& sql() const { return sql_; }

private:
    void createStore()
    {
        sql_ += "PRAGMA application_id = " + QByteArray::number(applicationID)
            + ";PRAGMA user_version = " + QByteArray::number(formatVersion)
            + ";CREATE TABLE \"$store\"(key TEXT PRIMARY KEY, value) WITHOUT ROWID"
              ";CREATE TABLE \"$entity\"(name TEXT PRIMARY KEY COLLATE NOCASE, next INTEGER) WITHOUT ROWID"
              ";INSERT INTO \"$store\" VALUES('identifier', '"
            + QUuid::createUuid().toByteArray(QUuid::WithoutBraces) + "');";
    }

    [[nodiscard]] Failure plan(const EntityDescription& entity)
    {
        const QByteArray table = quoted(entity.name());
        const QByteArray name = '\'' + entity.name().toUtf8().replace('\'', "\'\'") + '\'';
        const bool isNew = !present_.contains(folded(entity.name()));
        Names columns;
        if (auto failure = names(database_, "SELECT name FROM pragma_table_info(" + name + ')', columns))
            return failure;
        QByteArray newColumns;
        QByteArray further;
        for (const auto& attribute : entity.attributes()) {
            const QByteArray column = quoted(attribute.name);
            if (isNew)
                newColumns += ',' + column;
            else if (!columns.contains(folded(attribute.name)))
                further += "ALTER TABLE " + table + " ADD COLUMN " + column + ';';
            const QString index = indexName(entity, attribute);
            if (attribute.isIndexed && !present_.contains(folded(index)))
                further += "CREATE INDEX " + quoted(index) + " ON " + table + '(' + column + ");";
        }
        if (isNew)
            sql_ += "CREATE TABLE " + table + "(\"$id\" INTEGER PRIMARY KEY" + newColumns
                + ");INSERT OR IGNORE INTO \"$entity\" VALUES(" + name + ", 1);";
        sql_ += further;
        return std::nullopt;
    }

    SQLiteDatabase& database_;
    Names present_;
    QByteArray sql_;
};

} // namespace

Failure check(const std::vector<EntityDescription>& entities)
{
    Names entityNames;
    for (const auto& entity : entities) {
        Names attributeNames;
        auto failure = checkName(entity.name(), entityNames);
        for (const auto& attribute : entity.attributes()) {
            if (!failure)
                failure = checkName(attribute.name, attributeNames);
        }
        if (failure)
            return failure;
    }
    return std::nullopt;
}

Failure apply(SQLiteDatabase& database, const std::vector<EntityDescription>& entities)
{
    // Plan without the writers' lock first, because usually nothing is missing.
    Migration expected(database);
    if (auto failure = expected.plan(entities); failure || expected.sql().isEmpty())
        return failure;
    SQLiteTransaction transaction(database);
    if (auto failure = transaction.beginWriting())
        return failure;
    Migration migration(database); // again: another process can have changed the file meanwhile
    if (auto failure = migration.plan(entities))
        return failure;
    if (auto failure = database.run(migration.sql()))
        return failure;
    return transaction.commit();
}

} // namespace quor::toolkit::StoreModel
