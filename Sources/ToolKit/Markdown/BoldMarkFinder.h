// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Markdown/MarkdownMarks.h"

#include <optional>

namespace quor::toolkit {

/// Finds the bold marks of a text one by one, in time linear in the length of the text. Finds the same marks
/// as `boldPattern`.
///
/// `text` must outlive the finder. One thread at a time.
class BoldMarkFinder final {
public:
    explicit BoldMarkFinder(QStringView text);

    /// The next mark; `nullopt` if there are no more.
    [[nodiscard]] std::optional<MarkdownMark> next();

private:
    using Find = qsizetype (*)(QStringView text, qsizetype from);

    /// Finds the next position of something at or after a given one. It keeps the position until the search
    /// has passed it, so that searches from increasing positions walk over the text only once.
    class NextPosition {
    public:
        explicit NextPosition(Find find)
            : find_(find)
        {
        }
        [[nodiscard]] qsizetype from(QStringView text, qsizetype at)
        {
            if (next_ < at)
                next_ = find_(text, at);
            return next_;
        }

    private:
        Find find_;
        qsizetype next_ = -1;
    };
    [[nodiscard]] bool isMarker(qsizetype at) const;
    [[nodiscard]] bool isAtLineStart(qsizetype at) const;
    /// The position of the marker that closes the one at `opening`, if there is one on the same line.
    [[nodiscard]] std::optional<qsizetype> closing(qsizetype opening);

    QStringView text_;
    qsizetype position_ = 0; // the end of the last mark
    NextPosition stars_;
    NextPosition underscores_;
    NextPosition lineEnds_;
};

} // namespace quor::toolkit
