// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Predicates/PredicateSQL.h"

#include "ToolKit/CoreData/SQLite/SQLiteTransaction.h"

#include <algorithm>

namespace quor::toolkit {

namespace {

using Failure = SQLiteDatabase::Failure;
using Operator = PredicateComparison::Operator;

constexpr std::size_t longestInlineList = 100;

bool isNumber(AttributeType type)
{
    return type == AttributeType::boolean || type == AttributeType::integer || type == AttributeType::real;
}

bool isNumber(const AttributeValue& value)
{
    return std::holds_alternative<bool>(value) || std::holds_alternative<qint64>(value)
        || std::holds_alternative<double>(value);
}

bool isComparable(const AttributeValue& value, AttributeType type)
{
    return isEmpty(value)
        || (isStorable(value) && (isOfType(value, type) || (isNumber(value) && isNumber(type))));
}

bool isSearchable(AttributeType type)
{
    return type == AttributeType::text || type == AttributeType::data;
}

StoreError invalid(const QString& reason)
{
    return {StoreError::Kind::invalidRequest, reason, 0};
}

QByteArray listTable(std::size_t number)
{
    return "temp.\"$list " + QByteArray::number(number) + '"';
}

// IS and IS NOT also compare empty values. With an empty value the other operators are unknown to SQL, so the
// record does not match.
QByteArray comparisonSQL(Operator comparison, const QByteArray& column, const QByteArray& value)
{
    switch (comparison) {
    case Operator::equal:
        return column + " IS " + value;
    case Operator::notEqual:
        return column + " IS NOT " + value;
    case Operator::less:
        return column + " < " + value;
    case Operator::lessOrEqual:
        return column + " <= " + value;
    case Operator::greater:
        return column + " > " + value;
    case Operator::greaterOrEqual:
        return column + " >= " + value;
    case Operator::in:
        return column + " IN " + value;
    case Operator::contains:
        return "instr(" + column + ',' + value + ") > 0";
    case Operator::beginsWith:
        return "instr(" + column + ',' + value + ") = 1";
    }
    return {};
}

} // namespace

Failure PredicateSQL::read(const PredicateTerms& terms, const EntityDescription& entity)
{
    if (!terms.error.isEmpty())
        return invalid(terms.error);
    for (const auto& term : terms.terms) {
        if (const auto* const sql = std::get_if<QByteArray>(&term))
            condition_ += *sql;
        else if (auto failure = read(std::get<PredicateComparison>(term), entity))
            return failure;
    }
    return std::nullopt;
}

Failure PredicateSQL::read(const PredicateComparison& comparison, const EntityDescription& entity)
{
    const auto index = entity.index(comparison.key);
    if (!index)
        return invalid(QStringLiteral("%1 has no attribute \"%2\"").arg(entity.name(), comparison.key));
    const AttributeType type = entity.attributes()[*index].type;
    const List& values = comparison.argument.list();
    const bool isSearch
        = comparison.comparison == Operator::contains || comparison.comparison == Operator::beginsWith;
    const bool fits = std::all_of(
        values.begin(), values.end(), [type](const auto& value) { return isComparable(value, type); });
    if (!fits || (isSearch && !isSearchable(type)))
        return invalid(QStringLiteral("\"%1\" is compared with a value of another type").arg(comparison.key));
    const QByteArray value = comparison.argument.isList() ? parameters(values) : parameter(values.front());
    const QByteArray column = quoted(comparison.key);
    const QByteArray sql = comparisonSQL(comparison.comparison, column, value);
    const bool isEmptyListed
        = comparison.argument.isList() && std::any_of(values.begin(), values.end(), isEmpty);
    condition_ += isEmptyListed ? '(' + sql + " OR " + column + " IS NULL)" : sql;
    return std::nullopt;
}

QByteArray PredicateSQL::parameter(const AttributeValue& value)
{
    values_.push_back(&value);
    return '?' + QByteArray::number(values_.size());
}

QByteArray PredicateSQL::parameters(const List& list)
{
    if (list.size() > longestInlineList) {
        lists_.push_back(&list);
        return "(SELECT value FROM " + listTable(lists_.size()) + ')';
    }
    QByteArray sql;
    for (const auto& value : list)
        sql += (sql.isEmpty() ? "" : ",") + parameter(value);
    return '(' + sql + ')';
}

Failure PredicateSQL::provideLists(SQLiteDatabase& database) const
{
    if (lists_.empty())
        return std::nullopt;
    SQLiteTransaction transaction(database);
    if (auto failure = transaction.beginReading())
        return failure;
    for (std::size_t i = 0; i < lists_.size(); ++i) {
        const QByteArray table = listTable(i + 1);
        if (auto failure
            = database.run("CREATE TABLE IF NOT EXISTS " + table + "(value); DELETE FROM " + table))
            return failure;
        auto statement = database.prepare("INSERT INTO " + table + " VALUES(?1)");
        for (const auto& value : *lists_[i]) {
            statement.bind(1, value);
            if (auto failure = database.finish(statement))
                return failure;
        }
    }
    return transaction.commit();
}

void PredicateSQL::bind(SQLiteStatement& statement) const
{
    for (std::size_t i = 0; i < values_.size(); ++i)
        statement.bind(static_cast<int>(i) + 1, *values_[i]);
}

} // namespace quor::toolkit
