// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"

/// The elements that stand below one another, but for `Document` and `Table`. Handles, as `Markup` tells.
namespace quor::markdown {

class BlockQuote : public MarkupElement<MarkupKind::blockQuote> {
    using MarkupElement::MarkupElement;
};

class CustomBlock : public MarkupElement<MarkupKind::customBlock> {
    using MarkupElement::MarkupElement;
};

class ListItem : public MarkupElement<MarkupKind::listItem> {
public:
    using MarkupElement::MarkupElement;
    /// None for an item that is no task.
    [[nodiscard]] std::optional<Checkbox> checkbox() const;
};

class OrderedList : public MarkupElement<MarkupKind::orderedList> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] quint32 startIndex() const { return raw().node().first; }
};

class UnorderedList : public MarkupElement<MarkupKind::unorderedList> {
    using MarkupElement::MarkupElement;
};

class Paragraph : public MarkupElement<MarkupKind::paragraph> {
    using MarkupElement::MarkupElement;
};

class CodeBlock : public MarkupElement<MarkupKind::codeBlock> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString code() const { return text(); }
    /// All that is written behind the opening fence.
    [[nodiscard]] std::optional<QString> language() const { return optionalDetail(); }
};

class HTMLBlock : public MarkupElement<MarkupKind::htmlBlock> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString rawHTML() const { return text(); }
};

class Heading : public MarkupElement<MarkupKind::heading> {
public:
    using MarkupElement::MarkupElement;
    /// 1 to 6, unless it was built by hand.
    [[nodiscard]] quint32 level() const { return raw().node().first; }
};

class ThematicBreak : public MarkupElement<MarkupKind::thematicBreak> {
    using MarkupElement::MarkupElement;
};

class BlockDirective : public MarkupElement<MarkupKind::blockDirective> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString name() const { return text(); }
    [[nodiscard]] SourceLocation nameLocation() const;
    [[nodiscard]] QString arguments() const;
};

} // namespace quor::markdown
