// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Markup.h"

namespace quor::markdown {

/// The base of the element classes. An element is constructed from a `Markup` of the same kind; `Markup::as`
/// checks the kind first.
template <MarkupKind kindOfElement>
class MarkupElement : public Markup {
public:
    static constexpr MarkupKind elementKind = kindOfElement;

    /// `markup` must be of the kind `elementKind`.
    explicit MarkupElement(const Markup& markup)
        : Markup(markup)
    {
        Q_ASSERT(markup.kind() == kindOfElement);
    }
};

} // namespace quor::markdown
