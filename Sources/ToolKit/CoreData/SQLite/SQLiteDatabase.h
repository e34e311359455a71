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

/// A connection to one database file. Operations give their failure, or nothing. One thread at a time.
class SQLiteDatabase final {
public:
    using Failure = std::optional<StoreError>;

    enum class Mode {
        readWrite, ///< read only where the file allows no more
        immutable, ///< without locks, for a file that nobody can be changing
    };

    /// Opens what is there; creates no file.
    [[nodiscard]] Failure open(const QString& path, Mode mode, std::chrono::milliseconds busyTimeout);
    [[nodiscard]] bool isOpen() const { return connection_ != nullptr; }
    [[nodiscard]] bool isReadOnly() const;

    /// The file was removed, or another was put in its place: what is written would be lost.
    [[nodiscard]] bool hasMoved() const;

    /// Runs statements that give no rows.
    [[nodiscard]] Failure run(const QByteArray& sql);

    [[nodiscard]] SQLiteStatement prepare(const QByteArray& sql) const;

    /// The same statement, reset, for the same text; good until the next call.
    [[nodiscard]] SQLiteStatement& cached(const QByteArray& sql);

    /// What a result code of the last call means, with its reason.
    [[nodiscard]] StoreError error(int code) const;

    /// For statements that give no rows, once bound.
    [[nodiscard]] Failure finish(SQLiteStatement& statement) const;

    /// How many rows the last statement changed.
    [[nodiscard]] int changes() const;

    /// Within a transaction. Some failures end it.
    [[nodiscard]] bool isWithinTransaction() const;

private:
    struct Closer {
        void operator()(sqlite3* connection) const;
    };

    std::unique_ptr<sqlite3, Closer> connection_;
    std::map<QByteArray, SQLiteStatement> statements_; ///< ends before the connection
};

/// The name as an identifier in SQL.
[[nodiscard]] QByteArray quoted(const QString& name);

} // namespace quor::toolkit
