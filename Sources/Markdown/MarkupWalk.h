// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Markup.h"

namespace quor::markdown {

/// A walk over an element and its descendants that stops at each element twice: before its children and after
/// them. It needs no memory and no stack for the depth of the tree, so it is safe for texts of unknown
/// origin, unlike a `MarkupVisitor` that recurses. One thread at a time.
///
///     for (MarkupWalk walk(document); walk.next();)
///         if (walk.event() == MarkupWalk::Event::enter) ...
class MarkupWalk {
public:
    enum class Event : quint8 { enter, leave };

    explicit MarkupWalk(const Markup& root);

    /// Goes to the next event; the first is that the root is entered. Returns false after the root was left.
    bool next();

    /// Both are valid after `next` returned true. The next step changes the element that `markup` refers to:
    /// copy it to keep it.
    [[nodiscard]] Event event() const { return event_; }
    [[nodiscard]] const Markup& markup() const { return markup_; }
    /// Call this when an element is entered: the next event is then that it is left.
    void skipChildren() { skips_ = true; }

private:
    Markup markup_;
    quint32 root_;
    Event event_ = Event::enter;
    bool hasBegun_ = false;
    bool skips_ = false;
};

} // namespace quor::markdown
