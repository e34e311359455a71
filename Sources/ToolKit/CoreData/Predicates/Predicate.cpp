// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Predicates/Predicate.h"

#include "ToolKit/CoreData/Predicates/PredicateReader.h"

#include <span>
#include <utility>

namespace quor::toolkit {

namespace {

/// Joins them by halves, because SQLite allows only a thousand operators in a row.
void append(std::span<const Predicate> predicates, const char* by, PredicateTerms& all)
{
    all.terms.emplace_back(QByteArray("("));
    if (predicates.size() == 1) {
        const PredicateTerms& one = predicates.front().terms();
        all.terms.insert(all.terms.end(), one.terms.begin(), one.terms.end());
        if (all.error.isEmpty())
            all.error = one.error;
    } else {
        append(predicates.first(predicates.size() / 2), by, all);
        all.terms.emplace_back(QByteArray(by));
        append(predicates.subspan(predicates.size() / 2), by, all);
    }
    all.terms.emplace_back(QByteArray(")"));
}

} // namespace

Predicate::Predicate(QStringView format, const std::vector<PredicateArgument>& arguments)
    : Predicate(PredicateReader(format, arguments).read())
{
}

Predicate::Predicate(PredicateTerms terms)
    : terms_(std::make_shared<const PredicateTerms>(std::move(terms)))
{
}

Predicate Predicate::all(const std::vector<Predicate>& predicates)
{
    return joined(predicates, " AND ", "1");
}

Predicate Predicate::any(const std::vector<Predicate>& predicates)
{
    return joined(predicates, " OR ", "0");
}

Predicate Predicate::joined(const std::vector<Predicate>& predicates, const char* by, const char* ofNone)
{
    PredicateTerms all;
    if (predicates.empty())
        all.terms.emplace_back(QByteArray(ofNone));
    else
        append(predicates, by, all);
    return Predicate(std::move(all));
}

const QString& Predicate::error() const
{
    return terms_->error;
}

} // namespace quor::toolkit
