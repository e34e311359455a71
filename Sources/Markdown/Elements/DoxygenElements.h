// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"

/// The elements of a Doxygen comment. The parser never makes them, only `RawMarkupBuilder`. All are handles;
/// see `Markup`.
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
