// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <vector>

namespace quor::platform {

/// The characters of a text as its reader sees them: an accented letter, a flag or a family of emoji is one
/// character, made of several code points (an extended grapheme cluster of Unicode). A lone surrogate is one
/// character. Any thread.
struct GraphemeClusters {
    [[nodiscard]] static qsizetype count(QStringView text);

    /// The first `count` characters, the whole text if it has fewer, an empty text if `count` is below 1.
    /// Does not read the rest of the text.
    [[nodiscard]] static QStringView first(QStringView text, qsizetype count);

    /// The last `count` characters, the whole text if it has fewer, an empty text if `count` is below 1. Does
    /// not read the rest of the text.
    [[nodiscard]] static QStringView last(QStringView text, qsizetype count);

    /// The characters in order, as views of `text`.
    [[nodiscard]] static std::vector<QStringView> characters(QStringView text);
};

} // namespace quor::platform
