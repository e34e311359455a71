// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Predicates/PredicateArgument.h"

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace quor::toolkit {

struct PredicateTerms;

/// A condition on the attributes of a record, written once and filled in with values, which are never part
/// of its text:
///
///     Predicate(u"(uniqueID == %@)", {identifier})
///     Predicate(u"name BEGINSWITH %@ AND NOT (project IN %@)", {typed, hidden})
///
/// Comparisons are `key operator %@` with == (or =), != (<>), <, <=, >, >=, CONTAINS and BEGINSWITH, which
/// are exact about capitals, and IN, which takes a list. They join by AND (&&), OR (||), NOT (!) and
/// parentheses, 20 deep; words count in any case. Each `%@` takes the next argument; `%K` in the place of a
/// key takes it from the arguments, for names with other characters than letters, digits and "_".
///
/// An empty value equals an empty one, and is neither less nor greater than any. A comparison with a value
/// of another type than the attribute's, with NaN or half a surrogate pair makes a fetch fail; integers and
/// reals compare. A value; immutable; any thread.
class Predicate final {
public:
    explicit Predicate(QStringView format, const std::vector<PredicateArgument>& arguments = {});

    /// All or any of them hold, however many. Of none: `all` is true, `any` is false. Ten of these may stand
    /// in each other; a fetch by many more fails.
    [[nodiscard]] static Predicate all(const std::vector<Predicate>& predicates);
    [[nodiscard]] static Predicate any(const std::vector<Predicate>& predicates);

    /// What is wrong with the format or the number of arguments; empty for a good one. A fetch by a
    /// predicate with an error fails with it.
    [[nodiscard]] const QString& error() const;

    [[nodiscard]] const PredicateTerms& terms() const { return *terms_; } ///< for the store

private:
    explicit Predicate(PredicateTerms terms);
    [[nodiscard]] static Predicate joined(
        const std::vector<Predicate>& predicates, const char* by, const char* ofNone);

    std::shared_ptr<const PredicateTerms> terms_;
};

} // namespace quor::toolkit
