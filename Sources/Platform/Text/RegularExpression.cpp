// SPDX-License-Identifier: MIT
#include "Platform/Text/RegularExpression.h"

#include "Platform/Text/ICUText.h"

#include <unicode/regex.h>

#include <utility>

namespace quor::platform {

namespace {

// ICU counts a step for every ten thousand states that it tries, which take about 0.1 ms. The limit is for
// all matches of one call together.
constexpr int32_t mostSteps = 2000;

RegularExpression::Match matchOf(const icu::RegexMatcher& matcher, UErrorCode& status)
{
    RegularExpression::Match match;
    for (int32_t group = 0; group <= matcher.groupCount(); ++group) {
        const int32_t start = matcher.start(group, status);
        const int32_t end = matcher.end(group, status);
        match.groups.push_back(start < 0 ? std::nullopt : std::optional(TextRange{start, end - start}));
    }
    return match;
}

} // namespace

// Immutable, so any thread may create matchers from it. A matcher holds the state of one search.
struct RegularExpression::Pattern {
    std::unique_ptr<icu::RegexPattern> compiled;

    /// `text` must outlive the result. Returns null if it sets `status` to a failure.
    std::unique_ptr<icu::RegexMatcher> search(const icu::UnicodeString& text, UErrorCode& status) const
    {
        std::unique_ptr<icu::RegexMatcher> matcher(compiled->matcher(text, status));
        if (matcher)
            matcher->setTimeLimit(mostSteps, status);
        return U_SUCCESS(status) ? std::move(matcher) : nullptr;
    }
};

RegularExpression::RegularExpression(std::shared_ptr<const Pattern> pattern)
    : pattern_(std::move(pattern))
{
}

std::optional<RegularExpression> RegularExpression::compile(const QString& pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    UParseError where;
    std::unique_ptr<icu::RegexPattern> compiled(icu::RegexPattern::compile(icuText(pattern), where, status));
    if (U_FAILURE(status))
        return std::nullopt;
    return RegularExpression(std::make_shared<const Pattern>(Pattern{std::move(compiled)}));
}

std::vector<RegularExpression::Match> RegularExpression::matches(const QString& text) const
{
    UErrorCode status = U_ZERO_ERROR;
    const auto input = icuText(text);
    const auto matcher = pattern_->search(input, status);
    std::vector<Match> matches;
    while (matcher && matcher->find(status))
        matches.push_back(matchOf(*matcher, status));
    return U_SUCCESS(status) ? matches : std::vector<Match>();
}

QString RegularExpression::replaceAll(const QString& text, const QString& replacement) const
{
    UErrorCode status = U_ZERO_ERROR;
    const auto input = icuText(text);
    const auto matcher = pattern_->search(input, status);
    if (!matcher)
        return text;
    // ICU's own loop does not distinguish a search that was stopped from one without further matches.
    const auto with = icuText(replacement);
    icu::UnicodeString replaced;
    while (matcher->find(status))
        matcher->appendReplacement(replaced, with, status);
    if (U_FAILURE(status))
        return text;
    matcher->appendTail(replaced);
    return qtText(replaced);
}

} // namespace quor::platform
