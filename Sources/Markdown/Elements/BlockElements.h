// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"

/// The block elements of a document, except `Document` and `Table`, which have headers of their own. All are
/// handles; see `Markup`.
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
    /// The state of a task; `nullopt` if the item is not a task.
    [[nodiscard]] std::optional<Checkbox> checkbox() const { return raw().checkbox(); }
};

class OrderedList : public MarkupElement<MarkupKind::orderedList> {
public:
    using MarkupElement::MarkupElement;
    /// The number of the first item.
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
    /// The text after the opening fence, as in "c++"; `nullopt` if there is none.
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
    /// 1 to 6 in a parsed document. `RawMarkupBuilder` accepts any number.
    [[nodiscard]] quint32 level() const { return raw().node().first; }
};

class ThematicBreak : public MarkupElement<MarkupKind::thematicBreak> {
    using MarkupElement::MarkupElement;
};

/// Never made by the parser; see `MarkupKind`.
class BlockDirective : public MarkupElement<MarkupKind::blockDirective> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString name() const { return text(); }
    [[nodiscard]] SourceLocation nameLocation() const { return raw().data().nameLocation; }
    [[nodiscard]] QString arguments() const { return optionalDetail().value_or(QString()); }
};

} // namespace quor::markdown
