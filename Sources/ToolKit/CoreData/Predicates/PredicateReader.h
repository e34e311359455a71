// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Predicates/PredicateTerms.h"

#include <QStringView>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// Parses the format of a predicate. An object parses one format. Any thread.
class PredicateReader final {
public:
    PredicateReader(QStringView format, const std::vector<PredicateArgument>& arguments);

    /// Returns the terms, with an error if the format or the number of arguments is wrong.
    [[nodiscard]] PredicateTerms read();

private:
    using Operator = PredicateComparison::Operator;

    // Each returns false on failure, after setting the error of the result.
    bool readAlternatives();
    bool readConjunction();
    bool readNegation();
    bool readPrimary();
    bool readComparison();
    bool readKey(QString& key);
    std::optional<Operator> readOperator();

    bool accept(QStringView token); ///< skips the next token and returns true if it is this one
    void advance();
    const PredicateArgument* nextArgument();
    bool fail(const QString& reason);
    void add(const char* sql) { result_.terms.emplace_back(QByteArray(sql)); }

    QStringView rest_; ///< the format after `token_`
    QStringView token_; ///< empty at the end
    const std::vector<PredicateArgument>& arguments_;
    std::size_t used_ = 0;
    int depth_ = 0;
    PredicateTerms result_;
};

} // namespace quor::toolkit
