// SPDX-License-Identifier: MIT
#include "Markdown/MarkupWalk.h"

#include <utility>

namespace quor::markdown {

MarkupWalk::MarkupWalk(const Markup& root)
    : markup_(root)
    , root_(root.raw().index())
{
}

bool MarkupWalk::next()
{
    if (!std::exchange(hasBegun_, true))
        return true;
    const quint32 index = markup_.raw().index();
    const RawMarkupNode& node = markup_.raw().node();
    if (event_ == Event::enter) {
        if (std::exchange(skips_, false) || node.childCount == 0)
            event_ = Event::leave;
        else
            markup_.raw_.moveTo(index + 1);
        return true;
    }
    if (index == root_)
        return false;
    const quint32 parent = index - node.toParent;
    if (node.indexInParent + 1 < markup_.raw().tree().nodes[parent].childCount) {
        event_ = Event::enter;
        markup_.raw_.moveTo(index + node.subtreeCount);
    } else {
        markup_.raw_.moveTo(parent);
    }
    return true;
}

} // namespace quor::markdown
