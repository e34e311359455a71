// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/SQLite/SQLiteStatement.h"
#include "ToolKit/CoreData/Store/StoreError.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <map>
#include <memory>
#include <optional>

namespace quor::toolkit {

/// A connection to one database file. An operation that fails returns the reason, one that succeeds
/// `nullopt`. One thread at a time.
class SQLiteDatabase final {
public:
    using Failure = std::optional<StoreError>;

    enum class Mode {
        readWrite, ///< reads only if the file is read-only
        /// As `readWrite`, but no other process can use the file while it is open. Needs no room on the disk
        /// for reading a file with a write-ahead log.
        oneProcess,
        immutable, ///< reads only, without locks; for a file that nobody changes meanwhile
    };

    /// Opens an existing file. `busyTimeout` is how long operations wait for locks of other connections.
    [[nodiscard]] Failure open(const QString& path, Mode mode, std::chrono::milliseconds busyTimeout);
    [[nodiscard]] bool isReadOnly() const;

    /// Whether the file was removed or replaced since it was opened, so that anything written would be lost.
    [[nodiscard]] bool hasMoved() const;

    /// Runs one or more statements. Ignores rows.
    [[nodiscard]] Failure run(const QByteArray& sql);

    [[nodiscard]] SQLiteStatement prepare(const QByteArray& sql) const;

    /// A prepared statement, which is kept for later calls with the same text. It is reset, and valid until
    /// the next call.
    [[nodiscard]] SQLiteStatement& cached(const QByteArray& sql);

    /// The error for a result code of SQLite that the last call returned.
    [[nodiscard]] StoreError error(int code) const;

    /// Steps the statement to its end, ignoring rows, and resets it.
    [[nodiscard]] Failure finish(SQLiteStatement& statement) const;

    /// The number of rows that the last statement changed.
    [[nodiscard]] int changes() const;

    /// Whether a transaction is open. Some failures roll the transaction back.
    [[nodiscard]] bool isWithinTransaction() const;

private:
    struct Closer {
        void operator()(sqlite3* connection) const;
    };

    std::unique_ptr<sqlite3, Closer> connection_;
    std::map<QByteArray, SQLiteStatement> statements_; ///< destroyed before the connection
};

/// The name quoted as an SQL identifier.
[[nodiscard]] QByteArray quoted(const QString& name);

} // namespace quor::toolkit
