// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Predicate.h"

#include "ToolKit/CoreData/PredicateReader.h"

#include <utility>

namespace quor::toolkit {

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
    for (const Predicate& predicate : predicates) {
        all.terms.emplace_back(QByteArray(all.terms.empty() ? "(" : by));
        all.terms.emplace_back(QByteArray("("));
        const auto& terms = predicate.terms().terms;
        all.terms.insert(all.terms.end(), terms.begin(), terms.end());
        all.terms.emplace_back(QByteArray(")"));
        if (all.error.isEmpty())
            all.error = predicate.error();
    }
    all.terms.emplace_back(QByteArray(predicates.empty() ? ofNone : ")"));
    return Predicate(std::move(all));
}

const QString& Predicate::error() const
{
    return terms_->error;
}

} // namespace quor::toolkit
