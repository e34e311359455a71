// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/EntityDescription.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <QString>

#include <chrono>
#include <vector>

namespace quor::toolkit {

/// The file of a store, with the tables of its entities. It uses a write-ahead log, so that readers and
/// writers do not wait for each other. A commit returns when the data is on the disk. One thread at a time.
///
/// If the disk is so full that the log needs more room already for reading, the file is opened for this
/// process alone: until it is closed, other processes cannot use it.
class StoreFile final {
public:
    /// Opens or creates the file, and adds missing tables and columns. The folder must exist. A file that is
    /// not a store is not changed.
    [[nodiscard]] SQLiteDatabase::Failure open(const QString& path,
        const std::vector<EntityDescription>& entities, std::chrono::milliseconds busyTimeout);

    [[nodiscard]] SQLiteDatabase& database() { return database_; }
    [[nodiscard]] const QString& identifier() const { return identifier_; } ///< the UUID of the file

private:
    [[nodiscard]] SQLiteDatabase::Failure connect(const QString& path, std::chrono::milliseconds busyTimeout);
    /// Fails if the file belongs to another application or a later version.
    [[nodiscard]] SQLiteDatabase::Failure recognise();
    [[nodiscard]] SQLiteDatabase::Failure useWriteAheadLog(std::chrono::milliseconds busyTimeout);
    [[nodiscard]] SQLiteDatabase::Failure readIdentifier();

    SQLiteDatabase database_;
    QString identifier_;
};

} // namespace quor::toolkit
