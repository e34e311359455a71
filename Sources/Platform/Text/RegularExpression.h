// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace quor::platform {

/// A regular expression in ICU's syntax, compiled once.
///
/// Matching is cut off after a limited effort, so that no text, however unlucky for the pattern, can
/// hang the caller; a cut-off search has no result. A value, cheap to copy; copies may be used on
/// several threads at once.
class RegularExpression final {
public:
    struct Match {
        /// What the whole pattern took, then each group; none for a group that took no part.
        std::vector<std::optional<TextRange>> groups;

        [[nodiscard]] TextRange range() const { return *groups.front(); }
    };

    /// None if the pattern is malformed.
    [[nodiscard]] static std::optional<RegularExpression> compile(const QString& pattern);

    /// All matches, left to right, without overlap; empty if the search was cut off.
    [[nodiscard]] std::vector<Match> matches(const QString& text) const;

    /// `text` with each match replaced. `$1` in `replacement` stands for what group 1 took, a
    /// backslash makes the next character plain. The text as it was if the search was cut off or the
    /// replacement names a group that is not there.
    [[nodiscard]] QString replaceAll(const QString& text, const QString& replacement) const;

private:
    struct Pattern;
    explicit RegularExpression(std::shared_ptr<const Pattern> pattern);

    std::shared_ptr<const Pattern> pattern_;
};

} // namespace quor::platform
