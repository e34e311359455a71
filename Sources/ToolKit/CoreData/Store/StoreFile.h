// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/EntityDescription.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <QString>

#include <chrono>
#include <vector>

namespace quor::toolkit {

/// The file of a store: opens or makes it, and sees that it has the tables of the entities. Journalled
/// ahead (WAL), so that readers and writers do not wait for each other; each commit is on the disk when it
/// returns. One thread at a time.
class StoreFile final {
public:
    /// The file must be regular, and its folder must be there. What is no store is left untouched.
    [[nodiscard]] SQLiteDatabase::Failure open(const QString& path,
        const std::vector<EntityDescription>& entities, std::chrono::milliseconds busyTimeout);

    [[nodiscard]] SQLiteDatabase& database() { return database_; }
    [[nodiscard]] const QString& identifier() const { return identifier_; } ///< a UUID, of the file

private:
    [[nodiscard]] SQLiteDatabase::Failure connect(const QString& path, std::chrono::milliseconds busyTimeout);
    [[nodiscard]] SQLiteDatabase::Failure recognise();
    [[nodiscard]] SQLiteDatabase::Failure journalAhead(std::chrono::milliseconds busyTimeout);
    [[nodiscard]] SQLiteDatabase::Failure readIdentifier();

    SQLiteDatabase database_;
    QString identifier_;
};

} // namespace quor::toolkit
