// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Markup.h"

namespace quor::markdown {

/// Walks an element and all below it, telling of each when it is entered and when it is left. However deep
/// the tree is, a walk takes no more stack and no memory, so texts from outside are walked rather than
/// visited by a visitor that recurses. One thread at a time.
///
///     for (MarkupWalk walk(document); walk.next();)
///         if (walk.event() == MarkupWalk::Event::enter) ...
class MarkupWalk {
public:
    enum class Event : quint8 { enter, leave };

    explicit MarkupWalk(const Markup& root);

    /// The first step enters the root, the one after leaving it gives false.
    bool next();

    /// Both only after `next` gave true. The markup changes with the next step: copy it to keep it.
    [[nodiscard]] Event event() const { return event_; }
    [[nodiscard]] const Markup& markup() const { return markup_; }
    /// To be called on entering: the next step leaves the element.
    void skipChildren() { skips_ = true; }

private:
    Markup markup_;
    quint32 root_;
    Event event_ = Event::enter;
    bool hasBegun_ = false;
    bool skips_ = false;
};

} // namespace quor::markdown
