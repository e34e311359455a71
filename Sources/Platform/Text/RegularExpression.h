// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace quor::platform {

/// A compiled regular expression in ICU's syntax.
///
/// Each call stops after a limited number of steps, roughly 0.2 seconds, so that no combination of text and
/// pattern hangs the caller; a call that was stopped has no matches. A value, cheap to copy; copies may be
/// used on several threads at once.
class RegularExpression final {
public:
    struct Match {
        /// The range of the whole match, then that of each group; `nullopt` for a group that did not take
        /// part.
        std::vector<std::optional<TextRange>> groups;

        [[nodiscard]] TextRange range() const { return *groups.front(); }
    };

    /// Returns `nullopt` if the pattern is malformed.
    [[nodiscard]] static std::optional<RegularExpression> compile(const QString& pattern);

    /// All matches from left to right, without overlaps. Returns an empty list if the search was stopped.
    [[nodiscard]] std::vector<Match> matches(const QString& text) const;

    /// `text` with each match replaced. In `replacement`, `$1` stands for the text of group 1, and a
    /// backslash escapes the next character. Returns `text` unchanged if the search was stopped, or if
    /// `replacement` names a group that the pattern does not have.
    [[nodiscard]] QString replaceAll(const QString& text, const QString& replacement) const;

private:
    struct Pattern;
    explicit RegularExpression(std::shared_ptr<const Pattern> pattern);

    std::shared_ptr<const Pattern> pattern_;
};

} // namespace quor::platform
