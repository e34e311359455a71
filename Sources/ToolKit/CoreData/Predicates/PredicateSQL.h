// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/EntityDescription.h"
#include "ToolKit/CoreData/Predicates/PredicateTerms.h"
#include "ToolKit/CoreData/SQLite/SQLiteDatabase.h"

#include <QByteArray>

#include <vector>

namespace quor::toolkit {

/// A predicate on one entity as a condition in SQL with numbered parameters, which may stand in a statement
/// more than once. Values go in as parameters only, long lists by way of a table. Refers to the terms, which
/// must outlive it.
class PredicateSQL final {
public:
    /// Fails for keys that the entity has not, and for values of other types.
    [[nodiscard]] SQLiteDatabase::Failure read(const PredicateTerms& terms, const EntityDescription& entity);

    [[nodiscard]] const QByteArray& condition() const { return condition_; }

    [[nodiscard]] SQLiteDatabase::Failure provideLists(SQLiteDatabase& database) const;
    void bind(SQLiteStatement& statement) const;

private:
    using List = std::vector<AttributeValue>;

    [[nodiscard]] SQLiteDatabase::Failure read(
        const PredicateComparison& comparison, const EntityDescription& entity);
    [[nodiscard]] QByteArray parameter(const AttributeValue& value);
    [[nodiscard]] QByteArray parameters(const List& list);

    QByteArray condition_;
    std::vector<const AttributeValue*> values_; ///< by parameter
    std::vector<const List*> lists_; ///< those that have tables
};

} // namespace quor::toolkit
