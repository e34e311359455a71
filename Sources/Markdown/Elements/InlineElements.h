// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"

/// The inline elements of a document: text, and what marks it up. All are handles; see `Markup`.
namespace quor::markdown {

class Emphasis : public MarkupElement<MarkupKind::emphasis> {
    using MarkupElement::MarkupElement;
};

class Strong : public MarkupElement<MarkupKind::strong> {
    using MarkupElement::MarkupElement;
};

class Strikethrough : public MarkupElement<MarkupKind::strikethrough> {
    using MarkupElement::MarkupElement;
};

/// An image. Its children are the alternate text.
class Image : public MarkupElement<MarkupKind::image> {
public:
    using MarkupElement::MarkupElement;
    /// The address of the picture; `nullopt` if it is missing or empty.
    [[nodiscard]] std::optional<QString> source() const { return optionalText(); }
    [[nodiscard]] std::optional<QString> title() const { return optionalDetail(); }
};

class Link : public MarkupElement<MarkupKind::link> {
public:
    using MarkupElement::MarkupElement;
    /// `nullopt` if it is missing or empty.
    [[nodiscard]] std::optional<QString> destination() const { return optionalText(); }
    [[nodiscard]] std::optional<QString> title() const { return optionalDetail(); }
};

class InlineAttributes : public MarkupElement<MarkupKind::inlineAttributes> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString attributes() const { return text(); }
};

class CustomInline : public MarkupElement<MarkupKind::customInline> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString text() const { return Markup::text(); }
};

class InlineCode : public MarkupElement<MarkupKind::inlineCode> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString code() const { return text(); }
};

class InlineHTML : public MarkupElement<MarkupKind::inlineHTML> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString rawHTML() const { return text(); }
};

class LineBreak : public MarkupElement<MarkupKind::lineBreak> {
    using MarkupElement::MarkupElement;
};

class SoftBreak : public MarkupElement<MarkupKind::softBreak> {
    using MarkupElement::MarkupElement;
};

class SymbolLink : public MarkupElement<MarkupKind::symbolLink> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] std::optional<QString> destination() const { return optionalText(); }
};

class Text : public MarkupElement<MarkupKind::text> {
public:
    using MarkupElement::MarkupElement;
    [[nodiscard]] QString string() const { return text(); }
};

} // namespace quor::markdown
