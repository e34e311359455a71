// SPDX-License-Identifier: MIT
#include "ToolKit/Markdown/AttributedTextRewriter.h"

#include <algorithm>
#include <utility>

namespace quor::toolkit {

AttributedTextRewriter::AttributedTextRewriter(const platform::AttributedString& source)
    : source_(source)
{
    result_.setParagraphStyle(source.paragraphStyle());
}

void AttributedTextRewriter::keepUntil(qsizetype end, const QTextCharFormat& attributes)
{
    const auto& runs = source_.runs();
    while (at_ < end && run_ < runs.size()) {
        const auto& run = runs[run_];
        const qsizetype to = std::min<qsizetype>(end, run.start + run.length);
        if (to > at_) {
            result_.append(
                QStringView(source_.string()).sliced(at_, to - at_), merged(run.format, attributes));
            at_ = to;
        }
        if (at_ < end)
            ++run_;
    }
}

QTextCharFormat AttributedTextRewriter::merged(const QTextCharFormat& own, const QTextCharFormat& attributes)
{
    if (attributes.isEmpty())
        return own;
    if (merging_.own != own || merging_.attributes != attributes) {
        merging_ = {own, attributes, own};
        merging_.result.merge(attributes);
    }
    return merging_.result;
}

void AttributedTextRewriter::dropUntil(qsizetype end)
{
    at_ = std::max(at_, end);
}

void AttributedTextRewriter::insert(const platform::AttributedString& piece)
{
    result_.append(piece);
}

platform::AttributedString AttributedTextRewriter::finish()
{
    keepUntil(source_.length());
    return std::move(result_);
}

} // namespace quor::toolkit
