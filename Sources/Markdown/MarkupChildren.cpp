// SPDX-License-Identifier: MIT
#include "Markdown/MarkupChildren.h"

namespace quor::markdown {

template <>
MarkupChildIterator<false>& MarkupChildIterator<false>::operator++()
{
    index_ += parent_->raw().tree().nodes[index_].subtreeCount;
    --left_;
    return *this;
}

template <>
MarkupChildIterator<true>& MarkupChildIterator<true>::operator++()
{
    if (--left_ > 0)
        index_ -= parent_->raw().tree().nodes[index_].toSibling;
    return *this;
}

MarkupChildren::Iterator MarkupChildren::begin() const
{
    return {parent_, parent_.raw().index() + 1, parent_.raw().node().childCount};
}

ReversedMarkupChildren::Iterator ReversedMarkupChildren::begin() const
{
    const quint32 count = parent_.raw().node().childCount;
    if (count == 0)
        return end();
    const quint32 eldest = parent_.raw().index() + 1;
    return {parent_, eldest + parent_.raw().tree().nodes[eldest].toSibling, count};
}

std::optional<Markup> MarkupChildren::at(qsizetype index) const
{
    if (index < 0 || index >= size())
        return std::nullopt;
    Iterator child = begin();
    for (; index > 0; --index)
        ++child;
    return *child;
}

} // namespace quor::markdown
