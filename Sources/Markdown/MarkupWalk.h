// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Markup.h"

namespace quor::markdown {

/// A walk over an element and its descendants that stops at each element twice: before its children and after
/// them. Its use of memory and of stack does not grow with the depth of the tree. So it is safe for untrusted
/// texts, unlike a recursive `MarkupVisitor`. One thread at a time.
///
///     for (MarkupWalk walk(document); walk.next();)
///         if (walk.event() == MarkupWalk::Event::enter) ...
class MarkupWalk {
public:
    enum class Event : quint8 { enter, leave };

    explicit MarkupWalk(const Markup& root);

    /// Goes to the next event. The first event enters the root, the last one leaves it. Returns false, with
    /// no further event, after the last one.
    bool next();

    /// Both are valid after `next` returned true. The next step changes the element that `markup` refers to:
    /// copy it to keep it.
    [[nodiscard]] Event event() const { return event_; }
    [[nodiscard]] const Markup& markup() const { return markup_; }
    /// Makes the next event leave the element that was just entered, without its children. Call it only after
    /// an `enter` event.
    void skipChildren() { skips_ = true; }

private:
    Markup markup_;
    quint32 root_;
    Event event_ = Event::enter;
    bool hasBegun_ = false;
    bool skips_ = false;
};

} // namespace quor::markdown
