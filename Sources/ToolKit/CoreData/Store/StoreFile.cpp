// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Store/StoreFile.h"

#include "Platform/Files/FileDescriptor.h"
#include "ToolKit/CoreData/SQLite/SQLiteTransaction.h"
#include "ToolKit/CoreData/Store/StoreModel.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace quor::toolkit {

namespace {

using Failure = SQLiteDatabase::Failure;

StoreError cannotOpen(const QString& reason)
{
    return {StoreError::Kind::cannotOpen, reason, 0};
}

// Only the owner can read the file, and also the log files of SQLite, which get the same permissions.
Failure provideFile(const QString& path)
{
    if (path.isEmpty() || path.contains(QChar(u'\0')))
        return cannotOpen(QStringLiteral("the path is empty or contains NUL"));
    const QByteArray name = QFile::encodeName(path);
    const platform::FileDescriptor created(
        ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (created)
        return std::nullopt;
    const int reason = errno;
    struct stat status { };
    if (::stat(name.constData(), &status) != 0) // EEXIST is also the reason for a link that leads nowhere
        return cannotOpen(QString::fromLocal8Bit(std::strerror(reason == EEXIST ? errno : reason)));
    if (!S_ISREG(status.st_mode))
        return cannotOpen(QStringLiteral("not a regular file"));
    return std::nullopt;
}

/// Whether the disk has no room for the file that the processes which use a write-ahead log share.
bool lacksSharedMemory(const StoreError& failure)
{
    return failure.code == SQLITE_IOERR_SHMSIZE || failure.code == SQLITE_IOERR_SHMMAP
        || failure.kind == StoreError::Kind::full;
}

bool hasJournal(const QString& path)
{
    const auto isFilled
        = [&path](const char* suffix) { return QFileInfo(path + QLatin1String(suffix)).size() > 0; };
    return isFilled("-wal") || isFilled("-journal");
}

Failure number(SQLiteDatabase& database, const QByteArray& sql, qint64& value)
{
    auto statement = database.prepare(sql);
    const int result = statement.step();
    if (result != SQLITE_ROW)
        return database.error(result);
    value = statement.integer(0);
    return std::nullopt;
}

} // namespace

Failure StoreFile::open(const QString& path, const std::vector<EntityDescription>& entities,
    std::chrono::milliseconds busyTimeout)
{
    if (auto failure = StoreModel::check(entities))
        return failure;
    if (auto failure = provideFile(path))
        return failure;
    // SQLite has special names, such as ":memory:"; an absolute path is never one of them.
    if (auto failure = connect(QFileInfo(path).absoluteFilePath(), busyTimeout))
        return failure;
    if (auto failure = StoreModel::apply(database_, entities))
        return failure;
    return readIdentifier();
}

Failure StoreFile::connect(const QString& path, std::chrono::milliseconds busyTimeout)
{
    auto failure = database_.open(path, SQLiteDatabase::Mode::readWrite, busyTimeout);
    if (!failure)
        failure = recognise();
    if (failure && lacksSharedMemory(*failure)) {
        failure = database_.open(path, SQLiteDatabase::Mode::oneProcess, busyTimeout);
        if (!failure)
            failure = recognise();
    }
    // SQLite cannot even read a file with a write-ahead log if it cannot create files in the folder, as on a
    // read-only medium. If the log is empty and the file is not writable, assume that nobody changes it.
    if (failure && failure->kind != StoreError::Kind::notAStore && !hasJournal(path)
        && ::access(QFile::encodeName(path).constData(), W_OK) != 0) {
        failure = database_.open(path, SQLiteDatabase::Mode::immutable, busyTimeout);
        if (!failure)
            failure = recognise();
    }
    if (failure)
        return failure;
    if (auto ignored = database_.run("PRAGMA temp_store = MEMORY; PRAGMA synchronous = FULL;"))
        return ignored;
    return database_.isReadOnly() ? Failure() : useWriteAheadLog(busyTimeout);
}

Failure StoreFile::recognise()
{
    qint64 application = 0;
    qint64 version = 0;
    qint64 tables = 0;
    // One transaction, because another process can be creating the store at the same time.
    SQLiteTransaction transaction(database_);
    if (auto failure = transaction.beginReading())
        return failure;
    if (auto failure = number(database_, "PRAGMA application_id", application))
        return failure;
    if (auto failure = number(database_, "PRAGMA user_version", version))
        return failure;
    if (auto failure = number(database_, "SELECT count(*) FROM sqlite_schema", tables))
        return failure;
    if (application == 0 && version == 0 && tables == 0)
        return std::nullopt; // an empty file, which was created just now
    if (application != StoreModel::applicationID)
        return StoreError{
            StoreError::Kind::notAStore, QStringLiteral("the file belongs to another application"), 0};
    if (version > StoreModel::formatVersion)
        return StoreError{StoreError::Kind::notAStore,
            QStringLiteral("the file was made by a later version of this library"), 0};
    return std::nullopt;
}

Failure StoreFile::useWriteAheadLog(std::chrono::milliseconds busyTimeout)
{
    // A file switches to the log only once. SQLite does not always wait for locks when it switches, so this
    // waits. On file systems where a log is impossible, as on some network drives, the statement succeeds and
    // the ordinary journal stays.
    // The limit is at most a day, because adding `milliseconds::max()` to the time would overflow.
    const auto limit
        = std::chrono::steady_clock::now() + std::min<std::chrono::milliseconds>(busyTimeout, 24h);
    while (true) {
        auto statement = database_.prepare("PRAGMA journal_mode = WAL");
        const int result = statement.step();
        if (result == SQLITE_ROW)
            return std::nullopt;
        auto failure = database_.error(result);
        if (failure.kind != StoreError::Kind::locked || std::chrono::steady_clock::now() >= limit)
            return failure;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

Failure StoreFile::readIdentifier()
{
    auto statement = database_.prepare("SELECT value FROM \"$store\" WHERE key = 'identifier'");
    const int result = statement.step();
    if (result == SQLITE_DONE)
        return StoreError{StoreError::Kind::corrupt, QStringLiteral("the store has no identifier"), 0};
    if (result != SQLITE_ROW)
        return database_.error(result);
    identifier_ = statement.text(0);
    return std::nullopt;
}

} // namespace quor::toolkit
