// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/AttributeValue.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace quor::toolkit {

/// A prepared statement. `step` reports failures of the constructor and of `bind`, so that callers check for
/// them in one place. To be used on the thread of its database.
class SQLiteStatement final {
public:
    SQLiteStatement(sqlite3* database, const QByteArray& sql);

    /// If false, `step` returns the reason.
    [[nodiscard]] bool isPrepared() const { return statement_ != nullptr; }

    /// Parameters count from 1. Byte arrays are not copied: `value` must live until the next `reset`.
    void bind(int parameter, const AttributeValue& value);

    /// Returns SQLITE_ROW, SQLITE_DONE, or the result code of the first failure.
    [[nodiscard]] int step();

    /// Prepares the statement for being bound and stepped again.
    void reset();

    // The columns of the current row count from 0.
    [[nodiscard]] AttributeValue value(int column, AttributeType type) const; ///< empty if not of this type
    [[nodiscard]] qint64 integer(int column) const;
    [[nodiscard]] QString text(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
    std::vector<QByteArray> texts_; ///< bound texts in UTF-8, by parameter
    int failure_; ///< SQLITE_OK if nothing failed
};

} // namespace quor::toolkit
