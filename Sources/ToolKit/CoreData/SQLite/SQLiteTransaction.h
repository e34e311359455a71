// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

namespace quor::toolkit {

/// A transaction. The destructor rolls it back if it was not committed.
class SQLiteTransaction final {
public:
    explicit SQLiteTransaction(SQLiteDatabase& database)
        : database_(database)
    {
    }
    ~SQLiteTransaction()
    {
        if (isOpen_ && database_.isWithinTransaction())
            (void)database_.run("ROLLBACK");
    }
    SQLiteTransaction(const SQLiteTransaction&) = delete;
    SQLiteTransaction& operator=(const SQLiteTransaction&) = delete;

    /// A writing transaction waits for other writers, at most for the busy timeout. A reading transaction
    /// does not wait, and sees one state of the file until it ends.
    [[nodiscard]] SQLiteDatabase::Failure beginWriting() { return begin("BEGIN IMMEDIATE"); }
    [[nodiscard]] SQLiteDatabase::Failure beginReading() { return begin("BEGIN"); }

    [[nodiscard]] SQLiteDatabase::Failure commit()
    {
        auto failure = database_.run("COMMIT");
        isOpen_ = failure.has_value();
        return failure;
    }

private:
    SQLiteDatabase::Failure begin(const QByteArray& sql)
    {
        auto failure = database_.run(sql);
        isOpen_ = !failure;
        return failure;
    }

    SQLiteDatabase& database_;
    bool isOpen_ = false;
};

} // namespace quor::toolkit
