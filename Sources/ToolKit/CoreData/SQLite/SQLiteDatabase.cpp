// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <QFile>
#include <QUrl>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <sqlite3.h>

namespace quor::toolkit {

namespace {

constexpr std::size_t keptStatements = 64;

bool isOutOfRoom(int systemError)
{
    return systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG;
}

StoreError::Kind kindOf(int code, int systemError)
{
    using Kind = StoreError::Kind;
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Kind::locked;
    case SQLITE_READONLY:
        return Kind::readOnly;
    case SQLITE_FULL:
        return Kind::full;
    case SQLITE_IOERR:
        return isOutOfRoom(systemError) ? Kind::full : Kind::failed;
    case SQLITE_NOTADB:
        return Kind::notAStore;
    case SQLITE_CORRUPT:
        return Kind::corrupt;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return Kind::cannotOpen;
    case SQLITE_TOOBIG:
        return Kind::tooBig;
    default:
        return Kind::failed;
    }
}

QByteArray uri(const QString& path, SQLiteDatabase::Mode mode)
{
    QByteArray text = "file:" + QFile::encodeName(path).toPercentEncoding("/");
    switch (mode) {
    case SQLiteDatabase::Mode::readWrite:
        return text;
    case SQLiteDatabase::Mode::oneProcess:
        return text + "?vfs=unix-excl";
    case SQLiteDatabase::Mode::immutable:
        return text + "?immutable=1";
    }
    return text;
}

} // namespace

void SQLiteDatabase::Closer::operator()(sqlite3* connection) const
{
    sqlite3_close_v2(connection);
}

SQLiteDatabase::Failure SQLiteDatabase::open(
    const QString& path, Mode mode, std::chrono::milliseconds busyTimeout)
{
    statements_.clear();
    sqlite3* connection = nullptr;
    const int access = mode == Mode::immutable ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    const int result = sqlite3_open_v2(uri(path, mode).constData(), &connection,
        access | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    connection_.reset(connection);
    if (result != SQLITE_OK) {
        const StoreError reason = error(result);
        connection_.reset();
        return reason;
    }
    sqlite3_busy_timeout(
        connection, static_cast<int>(std::min<std::chrono::milliseconds::rep>(busyTimeout.count(), INT_MAX)));
    // A file of unknown origin must not run code of its own.
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    return std::nullopt;
}

bool SQLiteDatabase::isReadOnly() const
{
    return sqlite3_db_readonly(connection_.get(), "main") != 0;
}

bool SQLiteDatabase::hasMoved() const
{
    int hasMoved = 0;
    sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    return hasMoved != 0;
}

SQLiteDatabase::Failure SQLiteDatabase::run(const QByteArray& sql)
{
    const int result = sqlite3_exec(connection_.get(), sql.constData(), nullptr, nullptr, nullptr);
    return result == SQLITE_OK ? Failure() : error(result);
}

SQLiteStatement SQLiteDatabase::prepare(const QByteArray& sql) const
{
    return {connection_.get(), sql};
}

SQLiteStatement& SQLiteDatabase::cached(const QByteArray& sql)
{
    const auto found = statements_.find(sql);
    if (found != statements_.end()
        && found->second.isPrepared()) { // preparing a statement that failed before can succeed now
        found->second.reset();
        return found->second;
    }
    if (statements_.size() >= keptStatements)
        statements_.clear();
    return statements_.insert_or_assign(sql, prepare(sql)).first->second;
}

StoreError SQLiteDatabase::error(int code) const
{
    sqlite3* const connection = connection_.get();
    const bool isLast = connection && sqlite3_extended_errcode(connection) == code;
    const char* const reason = isLast ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
    const int systemError = isLast ? sqlite3_system_errno(connection) : 0;
    return {kindOf(code, systemError), QString::fromUtf8(reason), code};
}

SQLiteDatabase::Failure SQLiteDatabase::finish(SQLiteStatement& statement) const
{
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW)
        result = statement.step();
    Failure failure = result == SQLITE_DONE ? Failure() : error(result);
    statement.reset();
    return failure;
}

int SQLiteDatabase::changes() const
{
    return sqlite3_changes(connection_.get());
}

bool SQLiteDatabase::isWithinTransaction() const
{
    return sqlite3_get_autocommit(connection_.get()) == 0;
}

QByteArray quoted(const QString& name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
}

} // namespace quor::toolkit
