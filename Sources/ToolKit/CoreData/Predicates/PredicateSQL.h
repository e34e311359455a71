// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/EntityDescription.h"
#include "ToolKit/CoreData/Predicates/PredicateTerms.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <QByteArray>

#include <vector>

namespace quor::toolkit {

/// A predicate on one entity as an SQL condition. Values are numbered parameters, so the condition can be
/// used more than once in a statement; long lists are temporary tables. The terms must outlive this object.
class PredicateSQL final {
public:
    /// Translates the terms. Fails if the entity lacks an attribute or a value has another type than its
    /// attribute.
    [[nodiscard]] SQLiteDatabase::Failure read(const PredicateTerms& terms, const EntityDescription& entity);

    /// Empty if there is no predicate.
    [[nodiscard]] const QByteArray& condition() const { return condition_; }

    /// Fills the temporary tables for long lists. Call it before the statement runs.
    [[nodiscard]] SQLiteDatabase::Failure provideLists(SQLiteDatabase& database) const;
    /// Binds the values to the parameters of the statement.
    void bind(SQLiteStatement& statement) const;

private:
    using List = std::vector<AttributeValue>;

    [[nodiscard]] SQLiteDatabase::Failure read(
        const PredicateComparison& comparison, const EntityDescription& entity);
    [[nodiscard]] QByteArray parameter(const AttributeValue& value);
    [[nodiscard]] QByteArray parameters(const List& list);

    QByteArray condition_;
    std::vector<const AttributeValue*> values_; ///< by parameter
    std::vector<const List*> lists_; ///< the lists that are temporary tables
};

} // namespace quor::toolkit
