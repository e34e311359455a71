// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Markup.h"

namespace quor::markdown {

/// What the classes of all kinds have in common. One is made from a `Markup` of its own kind, most easily by
/// `Markup::as`, which asks for the kind first.
template <MarkupKind kindOfElement>
class MarkupElement : public Markup {
public:
    static constexpr MarkupKind elementKind = kindOfElement;

    explicit MarkupElement(const Markup& markup)
        : Markup(markup)
    {
        Q_ASSERT(markup.kind() == kindOfElement);
    }
};

} // namespace quor::markdown
