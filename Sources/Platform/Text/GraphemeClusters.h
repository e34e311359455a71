// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <vector>

namespace quor::platform {

/// A text as its reader sees it: an accented letter, a flag or a family of emoji is one character,
/// however many code points it is made of (extended grapheme clusters of Unicode).
///
/// Lone surrogates count as characters of their own. Plain text is walked without ICU. Any thread.
struct GraphemeClusters {
    [[nodiscard]] static qsizetype count(QStringView text);

    /// The first `n` characters, all of the text if it has fewer. Looks no further than they reach.
    [[nodiscard]] static QStringView first(QStringView text, qsizetype n);

    /// The last `n` characters, all of the text if it has fewer. Looks only at the end of the text.
    [[nodiscard]] static QStringView last(QStringView text, qsizetype n);

    /// The characters in order, as views of `text`.
    [[nodiscard]] static std::vector<QStringView> characters(QStringView text);
};

} // namespace quor::platform
