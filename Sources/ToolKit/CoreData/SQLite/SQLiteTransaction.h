// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

namespace quor::toolkit {

/// A transaction from `begin` to `commit`; undone at its end if it did not get that far.
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

    /// To write: waits for other writers, by the busy timeout. To read: sees one state of the file till
    /// the end, and waits for nobody.
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
