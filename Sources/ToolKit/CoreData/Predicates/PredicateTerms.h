// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Predicates/PredicateArgument.h"

#include <QByteArray>
#include <QString>

#include <variant>
#include <vector>

namespace quor::toolkit {

/// One comparison of a predicate.
struct PredicateComparison {
    enum class Operator {
        equal,
        notEqual,
        less,
        lessOrEqual,
        greater,
        greaterOrEqual,
        in,
        contains,
        beginsWith
    };

    QString key;
    Operator comparison = Operator::equal;
    PredicateArgument argument;
};

/// A parsed predicate: comparisons, and the SQL text between them.
struct PredicateTerms {
    std::vector<std::variant<QByteArray, PredicateComparison>> terms;
    QString error; ///< empty for a valid predicate
};

} // namespace quor::toolkit
