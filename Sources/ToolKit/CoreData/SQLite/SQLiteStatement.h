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

/// A prepared statement. Failures wait for `step`, so that a row is bound without a question in between.
/// Thread: that of its database.
class SQLiteStatement final {
public:
    SQLiteStatement(sqlite3* database, const QByteArray& sql);

    /// False where `step` will say why.
    [[nodiscard]] bool isPrepared() const { return statement_ != nullptr; }

    /// Parameters count from 1. Bytes are not copied: the value must last until the next `reset`.
    void bind(int parameter, const AttributeValue& value);

    /// SQLITE_ROW, SQLITE_DONE, or the first failure.
    [[nodiscard]] int step();

    /// Ready to be bound and stepped anew.
    void reset();

    // Of the row that the last step gave; columns count from 0.
    [[nodiscard]] AttributeValue value(int column, AttributeType type) const; ///< empty for another type
    [[nodiscard]] qint64 integer(int column) const;
    [[nodiscard]] QString text(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
    std::vector<QByteArray> texts_; ///< in UTF-8, by parameter
    int failure_;
};

} // namespace quor::toolkit
