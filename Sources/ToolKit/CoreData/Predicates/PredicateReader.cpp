// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Predicates/PredicateReader.h"

#include <array>
#include <utility>

namespace quor::toolkit {

namespace {

constexpr int maximalDepth = 20; // of parentheses; SQLite allows 40, and a negated pair becomes two pairs

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == u'_' || character.isSurrogate() || character.isMark();
}

qsizetype tokenLength(QStringView text)
{
    if (isWordCharacter(text.front())) {
        qsizetype length = 1;
        while (length < text.size() && isWordCharacter(text[length]))
            ++length;
        return length;
    }
    for (const QStringView pair : {u"%@", u"%K", u"==", u"!=", u"<>", u"<=", u">=", u"&&", u"||"}) {
        if (text.startsWith(pair))
            return pair.size();
    }
    return 1;
}

} // namespace

PredicateReader::PredicateReader(QStringView format, const std::vector<PredicateArgument>& arguments)
    : rest_(format)
    , arguments_(arguments)
{
    advance();
}

PredicateTerms PredicateReader::read()
{
    const bool isRead = readAlternatives();
    if (isRead && !token_.isEmpty())
        fail(QStringLiteral("unexpected \"%1\"").arg(token_));
    else if (isRead && used_ < arguments_.size())
        fail(QStringLiteral("there are more arguments than placeholders"));
    return std::move(result_);
}

bool PredicateReader::readAlternatives()
{
    if (!readConjunction())
        return false;
    while (accept(u"OR") || accept(u"||")) {
        add(" OR ");
        if (!readConjunction())
            return false;
    }
    return true;
}

bool PredicateReader::readConjunction()
{
    if (!readNegation())
        return false;
    while (accept(u"AND") || accept(u"&&")) {
        add(" AND ");
        if (!readNegation())
            return false;
    }
    return true;
}

bool PredicateReader::readNegation()
{
    bool isNegated = false;
    while (accept(u"NOT") || accept(u"!"))
        isNegated = !isNegated;
    if (!isNegated)
        return readPrimary();
    // A comparison with an empty value is unknown to SQL. Here it is false, so its negation is true.
    add("(");
    if (!readPrimary())
        return false;
    add(") IS NOT TRUE");
    return true;
}

bool PredicateReader::readPrimary()
{
    if (!accept(u"("))
        return readComparison();
    if (++depth_ > maximalDepth)
        return fail(QStringLiteral("parentheses are nested more than %1 deep").arg(maximalDepth));
    add("(");
    if (!readAlternatives())
        return false;
    if (!accept(u")"))
        return fail(QStringLiteral("a closing parenthesis is missing"));
    add(")");
    --depth_;
    return true;
}

bool PredicateReader::readComparison()
{
    PredicateComparison comparison;
    if (!readKey(comparison.key))
        return false;
    const auto found = readOperator();
    if (!found)
        return fail(QStringLiteral("\"%1\" is not a comparison operator").arg(token_));
    comparison.comparison = *found;
    if (!accept(u"%@"))
        return fail(QStringLiteral("%@ is missing after the operator"));
    const auto* const argument = nextArgument();
    if (!argument)
        return false;
    if (argument->isList() != (*found == Operator::in))
        return fail(QStringLiteral("IN needs a list, and other operators need a single value"));
    comparison.argument = *argument;
    result_.terms.emplace_back(std::move(comparison));
    return true;
}

bool PredicateReader::readKey(QString& key)
{
    if (accept(u"%K")) {
        const auto* const argument = nextArgument();
        const auto* const name
            = argument && !argument->isList() ? std::get_if<QString>(&argument->value()) : nullptr;
        if (argument && !name)
            return fail(QStringLiteral("the argument of %K must be a text"));
        key = name ? *name : QString();
        return name != nullptr;
    }
    if (token_.isEmpty() || !isWordCharacter(token_.front()))
        return fail(QStringLiteral("a key is missing"));
    key = token_.toString();
    advance();
    return true;
}

std::optional<PredicateReader::Operator> PredicateReader::readOperator()
{
    using enum PredicateComparison::Operator;
    static constexpr std::array<std::pair<QStringView, Operator>, 11> operators{{{u"==", equal},
        {u"=", equal}, {u"!=", notEqual}, {u"<>", notEqual}, {u"<=", lessOrEqual}, {u">=", greaterOrEqual},
        {u"<", less}, {u">", greater}, {u"IN", in}, {u"CONTAINS", contains}, {u"BEGINSWITH", beginsWith}}};
    for (const auto& [text, comparison] : operators) {
        if (accept(text))
            return comparison;
    }
    return std::nullopt;
}

bool PredicateReader::accept(QStringView token)
{
    if (token_.compare(token, Qt::CaseInsensitive) != 0)
        return false;
    advance();
    return true;
}

void PredicateReader::advance()
{
    rest_ = rest_.trimmed();
    const qsizetype length = rest_.isEmpty() ? 0 : tokenLength(rest_);
    token_ = rest_.first(length);
    rest_ = rest_.sliced(length);
}

const PredicateArgument* PredicateReader::nextArgument()
{
    if (used_ < arguments_.size())
        return &arguments_[used_++];
    fail(QStringLiteral("there are more placeholders than arguments"));
    return nullptr;
}

bool PredicateReader::fail(const QString& reason)
{
    result_.error = reason;
    return false;
}

} // namespace quor::toolkit
