// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/AttributedString.h"

namespace quor::toolkit {

/// Builds a new attributed text from parts of an old one, from left to right, in time linear in the length
/// and the number of runs. Positions are positions in the old text and must not decrease from call to call.
/// One thread at a time.
class AttributedTextRewriter final {
public:
    explicit AttributedTextRewriter(const platform::AttributedString& source);

    /// Copies the old text up to `end`, with `attributes` added to its own; `attributes` win.
    void keepUntil(qsizetype end, const QTextCharFormat& attributes = {});
    /// Leaves out the old text up to `end`.
    void dropUntil(qsizetype end);
    /// Appends `piece` to the new text.
    void insert(const platform::AttributedString& piece);

    /// Copies the rest of the old text and returns the new text. The rewriter must not be used afterwards.
    [[nodiscard]] platform::AttributedString finish();

private:
    [[nodiscard]] QTextCharFormat merged(const QTextCharFormat& own, const QTextCharFormat& attributes);

    // The last merge, kept because many runs have the same attributes and get the same additions.
    struct Merging {
        QTextCharFormat own;
        QTextCharFormat attributes;
        QTextCharFormat result;
    };

    const platform::AttributedString source_;
    platform::AttributedString result_;
    qsizetype at_ = 0;
    qsizetype run_ = 0; // index of the run that contains `at_`, or of an earlier one
    Merging merging_;
};

} // namespace quor::toolkit
