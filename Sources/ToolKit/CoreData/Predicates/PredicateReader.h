// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Predicates/PredicateTerms.h"

#include <QStringView>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// Reads a predicate's format with its arguments. One for each format; any thread.
class PredicateReader final {
public:
    PredicateReader(QStringView format, const std::vector<PredicateArgument>& arguments);

    [[nodiscard]] PredicateTerms read();

private:
    using Operator = PredicateComparison::Operator;

    // Each returns false on a failure, which is set then.
    bool readAlternatives();
    bool readConjunction();
    bool readNegation();
    bool readPrimary();
    bool readComparison();
    bool readKey(QString& key);
    std::optional<Operator> readOperator();

    bool accept(QStringView token); ///< moves on if it comes next
    void advance();
    const PredicateArgument* nextArgument();
    bool fail(const QString& reason);
    void add(const char* sql) { result_.terms.emplace_back(QByteArray(sql)); }

    QStringView rest_; ///< behind `token_`
    QStringView token_; ///< empty at the end
    const std::vector<PredicateArgument>& arguments_;
    std::size_t used_ = 0;
    int depth_ = 0;
    PredicateTerms result_;
};

} // namespace quor::toolkit
