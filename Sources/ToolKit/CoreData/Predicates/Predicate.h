// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Predicates/PredicateArgument.h"

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace quor::toolkit {

struct PredicateTerms;

/// A condition on the attributes of a record: a format, and the arguments for its placeholders:
///
///     Predicate(u"(uniqueID == %@)", {identifier})
///     Predicate(u"name BEGINSWITH %@ AND NOT (project IN %@)", {typed, hidden})
///
/// A comparison is `key operator %@`. The operators are ==, =, !=, <>, <, <=, >, >=, CONTAINS and BEGINSWITH
/// (both case-sensitive), and IN, which takes a list. Comparisons are combined with AND (&&), OR (||), NOT
/// (!) and up to 20 levels of parentheses. Words can be written in any case. Each `%@` takes the next
/// argument. `%K` stands for a key and takes its name from the next argument; use it for names that contain
/// other characters than letters, digits and "_".
///
/// An empty value is equal to an empty value, and neither less nor greater than any value. Integers and reals
/// can be compared with each other. A fetch fails if an argument has another type than its attribute, or is
/// NaN or text with half a surrogate pair.
///
/// A plain value; immutable; any thread.
class Predicate final {
public:
    explicit Predicate(QStringView format, const std::vector<PredicateArgument>& arguments = {});

    /// Combines any number of predicates. Without predicates `all` is always true and `any` always false.
    /// Both can be nested ten deep; fetches with much deeper ones fail.
    [[nodiscard]] static Predicate all(const std::vector<Predicate>& predicates);
    [[nodiscard]] static Predicate any(const std::vector<Predicate>& predicates);

    /// The error in the format or the number of arguments; empty if there is none. A fetch with such a
    /// predicate fails with this error.
    [[nodiscard]] const QString& error() const;

    [[nodiscard]] const PredicateTerms& terms() const { return *terms_; } ///< for the store

private:
    explicit Predicate(PredicateTerms terms);
    [[nodiscard]] static Predicate joined(
        const std::vector<Predicate>& predicates, const char* by, const char* ofNone);

    std::shared_ptr<const PredicateTerms> terms_;
};

} // namespace quor::toolkit
