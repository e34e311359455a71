// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/AttributedString.h"

namespace quor::toolkit {

/// Makes a new attributed text of an old one, from left to right, in time linear in its length and
/// its runs. Places are those of the old text, in rising order. One thread at a time.
class AttributedTextRewriter final {
public:
    explicit AttributedTextRewriter(const platform::AttributedString& source);

    /// Takes over what lies before `end`, with `attributes` over those that it has.
    void keepUntil(qsizetype end, const QTextCharFormat& attributes = {});
    /// Leaves out what lies before `end`.
    void dropUntil(qsizetype end);
    void insert(const platform::AttributedString& piece);

    /// The new text, with all that is left of the old. The rewriter is used up.
    [[nodiscard]] platform::AttributedString finish();

private:
    [[nodiscard]] QTextCharFormat merged(const QTextCharFormat& own, const QTextCharFormat& attributes);

    // The last result, for many stretches have the same attributes and get the same.
    struct Merging {
        QTextCharFormat own;
        QTextCharFormat attributes;
        QTextCharFormat result;
    };

    const platform::AttributedString source_;
    platform::AttributedString result_;
    qsizetype at_ = 0;
    qsizetype run_ = 0; // the one that holds `at_`, or one before it
    Merging merging_;
};

} // namespace quor::toolkit
