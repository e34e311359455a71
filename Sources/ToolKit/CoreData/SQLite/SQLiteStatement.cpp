// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/SQLite/SQLiteStatement.h"

#include <sqlite3.h>

#include <type_traits>

namespace quor::toolkit {

namespace {

AttributeValue stored(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return qint64{sqlite3_column_int64(statement, column)};
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    case SQLITE_TEXT: {
        const auto* const bytes = sqlite3_column_text(statement, column);
        return QString::fromUtf8(
            reinterpret_cast<const char*>(bytes), sqlite3_column_bytes(statement, column));
    }
    case SQLITE_BLOB: {
        const auto* const bytes = sqlite3_column_blob(statement, column);
        return QByteArray(static_cast<const char*>(bytes), sqlite3_column_bytes(statement, column));
    }
    default:
        return {};
    }
}

} // namespace

void SQLiteStatement::Finalizer::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

SQLiteStatement::SQLiteStatement(sqlite3* database, const QByteArray& sql)
{
    sqlite3_stmt* statement = nullptr;
    failure_ = sqlite3_prepare_v3(database, sql.constData(), static_cast<int>(sql.size()) + 1,
        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    texts_.resize(static_cast<std::size_t>(sqlite3_bind_parameter_count(statement)) + 1);
}

void SQLiteStatement::bind(int parameter, const AttributeValue& value)
{
    sqlite3_stmt* const statement = statement_.get();
    const auto bindOne = [&](const auto& held) {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>) {
            return sqlite3_bind_null(statement, parameter);
        } else if constexpr (std::is_same_v<Held, bool> || std::is_same_v<Held, qint64>) {
            return sqlite3_bind_int64(statement, parameter, held);
        } else if constexpr (std::is_same_v<Held, double>) {
            return sqlite3_bind_double(statement, parameter, held);
        } else if constexpr (std::is_same_v<Held, platform::Date>) {
            return sqlite3_bind_double(statement, parameter, platform::secondsSince1970(held));
        } else if constexpr (std::is_same_v<Held, QString>) {
            QByteArray& text = texts_[static_cast<std::size_t>(parameter)];
            text = held.toUtf8();
            return sqlite3_bind_text64(statement, parameter, text.constData(),
                static_cast<sqlite3_uint64>(text.size()), SQLITE_STATIC, SQLITE_UTF8);
        } else {
            return sqlite3_bind_blob64(statement, parameter, held.constData(),
                static_cast<sqlite3_uint64>(held.size()), SQLITE_STATIC);
        }
    };
    const int result = failure_ == SQLITE_OK ? std::visit(bindOne, value) : failure_;
    if (result != SQLITE_OK)
        failure_ = result;
}

int SQLiteStatement::step()
{
    if (failure_ != SQLITE_OK)
        return failure_;
    return sqlite3_step(statement_.get());
}

void SQLiteStatement::reset()
{
    if (!statement_)
        return;
    sqlite3_reset(statement_.get());
    sqlite3_clear_bindings(statement_.get());
    failure_ = SQLITE_OK;
}

AttributeValue SQLiteStatement::value(int column, AttributeType type) const
{
    AttributeValue value = stored(statement_.get(), column);
    if (type == AttributeType::date) {
        if (const auto* const seconds = std::get_if<double>(&value))
            return platform::dateFromSeconds(*seconds);
        if (const auto* const whole = std::get_if<qint64>(&value))
            return platform::dateFromSeconds(static_cast<double>(*whole));
    }
    if (isOfType(value, type))
        return value;
    // The attribute had another type when this was written.
    const auto fitting = converted(value, type);
    if (!fitting)
        return {};
    return *fitting;
}

qint64 SQLiteStatement::integer(int column) const
{
    return sqlite3_column_int64(statement_.get(), column);
}

QString SQLiteStatement::text(int column) const
{
    const auto value = stored(statement_.get(), column);
    const auto* const text = std::get_if<QString>(&value);
    return text ? *text : QString();
}

} // namespace quor::toolkit
