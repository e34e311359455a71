// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Raw/RawMarkup.h"

#include <compare>

namespace quor::markdown {

class MarkupChildren;

/// Identifies an element and its document. `childId` is the position in walking order: parents before their
/// children, siblings in order, and 0 for the document itself.
struct MarkupIdentifier {
    quint64 rootId = 0; ///< unique for each tree of this process
    quint64 childId = 0;

    friend auto operator<=>(const MarkupIdentifier&, const MarkupIdentifier&) = default;
};

/// The position of an element in its document.
struct MarkupMetadata {
    MarkupIdentifier id;
    qsizetype indexInParent = 0; ///< also 0 for the document
};

/// A raw node and its position.
struct AbsoluteRawMarkup {
    RawMarkup markup;
    MarkupMetadata metadata;
};

/// An element of any kind, at its position in a document. It is a handle: cheap to copy, and it keeps the
/// whole document alive. The derived classes add accessors but no data, so a `Markup` that was copied from an
/// `Image` can be turned into an `Image` again by `as`. Any thread.
class Markup {
public:
    explicit Markup(RawMarkup raw)
        : raw_(std::move(raw))
    {
    }

    [[nodiscard]] MarkupKind kind() const { return raw_.kind(); }
    /// The element as an `Element`, such as `Heading`; `nullopt` if it is of another kind.
    template <class Element>
    [[nodiscard]] std::optional<Element> as() const
    {
        return kind() == Element::elementKind ? std::optional<Element>(std::in_place, *this) : std::nullopt;
    }

    /// `nullopt` for the document.
    [[nodiscard]] std::optional<Markup> parent() const;
    [[nodiscard]] qsizetype indexInParent() const { return raw_.node().indexInParent; }
    [[nodiscard]] qsizetype childCount() const { return raw_.node().childCount; }
    [[nodiscard]] MarkupChildren children() const;

    [[nodiscard]] MarkupIdentifier id() const { return {raw_.tree().rootId, raw_.index()}; }
    /// The place in the parsed text. `nullopt` if the parser reports no range, as for line breaks, or if
    /// `RawMarkupBuilder` got no range.
    [[nodiscard]] std::optional<SourceRange> range() const { return raw_.parsedRange(); }
    [[nodiscard]] AbsoluteRawMarkup absoluteRaw() const { return {raw_, {id(), indexInParent()}}; }
    [[nodiscard]] const RawMarkup& raw() const { return raw_; }

    /// Whether both are the same element of the same document.
    friend bool operator==(const Markup& one, const Markup& other) { return one.id() == other.id(); }

protected:
    [[nodiscard]] QString text() const { return QString::fromUtf8(raw_.utf8Text()); }
    [[nodiscard]] std::optional<QString> optionalText() const;
    [[nodiscard]] std::optional<QString> optionalDetail() const;

private:
    friend class MarkupWalk;
    RawMarkup raw_;
};

} // namespace quor::markdown
