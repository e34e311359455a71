// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"

/// What a comment in Doxygen's manner is made of. Never parsed, only built by hand. Handles, as `Markup`
/// tells.
namespace quor::markdown {

class DoxygenDiscussion : public MarkupElement<MarkupKind::doxygenDiscussion> {
    using MarkupElement::MarkupElement;
};

class DoxygenNote : public MarkupElement<MarkupKind::doxygenNote> {
    using MarkupElement::MarkupElement;
};

class DoxygenParameter : public MarkupElement<MarkupKind::doxygenParam> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString name() const { return text(); }
};

class DoxygenReturns : public MarkupElement<MarkupKind::doxygenReturns> {
    using MarkupElement::MarkupElement;
};

} // namespace quor::markdown
