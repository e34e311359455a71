// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Store/StoreFile.h"

#include "ToolKit/CoreData/SQLite/SQLiteTransaction.h"
#include "ToolKit/CoreData/Store/StoreModel.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
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

// For its owner's eyes only, and so are the files that SQLite puts beside it.
Failure provideFile(const QString& path)
{
    if (path.isEmpty() || path.contains(QChar(u'\0')))
        return cannotOpen(QStringLiteral("no path"));
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file >= 0) {
        ::close(file);
        return std::nullopt;
    }
    const int reason = errno;
    struct stat status { };
    if (::stat(name.constData(), &status) != 0) // a link that leads nowhere is there, yet no file
        return cannotOpen(QString::fromLocal8Bit(std::strerror(reason == EEXIST ? errno : reason)));
    if (!S_ISREG(status.st_mode))
        return cannotOpen(QStringLiteral("not a regular file"));
    return std::nullopt;
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
    // A relative path could read as one of SQLite's own names.
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
    // A journalled file cannot even be read where no file may be made beside it, as on a medium that is
    // read only. With nothing in a journal and no leave to write, nobody is taken to be changing it.
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
    return database_.isReadOnly() ? Failure() : journalAhead(busyTimeout);
}

Failure StoreFile::recognise()
{
    qint64 application = 0;
    qint64 version = 0;
    qint64 tables = 0;
    // Of one moment: another process may be making the store just now.
    SQLiteTransaction moment(database_);
    if (auto failure = moment.beginReading())
        return failure;
    if (auto failure = number(database_, "PRAGMA application_id", application))
        return failure;
    if (auto failure = number(database_, "PRAGMA user_version", version))
        return failure;
    if (auto failure = number(database_, "SELECT count(*) FROM sqlite_schema", tables))
        return failure;
    if (application == 0 && version == 0 && tables == 0)
        return std::nullopt; // empty: made just now, here or by another process
    if (application != StoreModel::applicationID)
        return StoreError{
            StoreError::Kind::notAStore, QStringLiteral("a database of another application"), 0};
    if (version > StoreModel::formatVersion)
        return StoreError{StoreError::Kind::notAStore, QStringLiteral("a store of a later version"), 0};
    return std::nullopt;
}

Failure StoreFile::journalAhead(std::chrono::milliseconds busyTimeout)
{
    // The switch happens once in the life of a file, and does not always wait by itself. Where it is not to
    // be had, on some network drives, the ordinary journal serves.
    // At most for a day, since the longest of timeouts cannot be added to a moment.
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
