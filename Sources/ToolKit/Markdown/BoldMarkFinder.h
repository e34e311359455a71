// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Markdown/MarkdownMarks.h"

#include <optional>

namespace quor::toolkit {

/// Walks a text from one bold stretch to the next, in time linear in the text.
///
/// `text` must outlive the finder. One thread at a time.
class BoldMarkFinder final {
public:
    explicit BoldMarkFinder(QStringView text);

    /// The next stretch; none from the text's end on.
    [[nodiscard]] std::optional<MarkdownMark> next();

private:
    /// The next place at which something stands, kept until it has been passed, so that asking for
    /// it again and again from further places costs one walk over the text.
    template <typename Find>
    class Upcoming {
    public:
        explicit Upcoming(Find find)
            : find_(find)
        {
        }
        [[nodiscard]] qsizetype from(QStringView text, qsizetype at)
        {
            if (place_ < at)
                place_ = find_(text, at);
            return place_;
        }

    private:
        Find find_;
        qsizetype place_ = -1;
    };
    using Search = qsizetype (*)(QStringView text, qsizetype from);

    [[nodiscard]] bool isMarker(qsizetype at) const;
    [[nodiscard]] bool isAtLineStart(qsizetype at) const;
    [[nodiscard]] std::optional<qsizetype> closing(qsizetype opening);

    QStringView text_;
    qsizetype position_ = 0; // behind the last stretch
    Upcoming<Search> stars_;
    Upcoming<Search> underscores_;
    Upcoming<Search> lineEnds_;
};

} // namespace quor::toolkit
