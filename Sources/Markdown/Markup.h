// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Raw/RawMarkup.h"

#include <compare>

namespace quor::markdown {

class MarkupChildren;

/// Which element of which document. Children have higher numbers than their parents, and later ones than
/// earlier ones; the document itself has 0.
struct MarkupIdentifier {
    quint64 rootId = 0; ///< another for each text parsed, in this process
    quint64 childId = 0;

    friend auto operator<=>(const MarkupIdentifier&, const MarkupIdentifier&) = default;
};

struct MarkupMetadata {
    MarkupIdentifier id;
    qsizetype indexInParent = 0; ///< 0 for a root as well
};

/// A raw node with its place.
struct AbsoluteRawMarkup {
    RawMarkup markup;
    MarkupMetadata metadata;
};

/// An element of any kind in its place in a document: a cheap handle that keeps the whole document alive, and
/// may be copied and read from any thread. The classes derived from it add what their kind can tell, and no
/// data, so that a handle may be cut down to this one and brought back by `as`.
class Markup {
public:
    explicit Markup(RawMarkup raw)
        : raw_(std::move(raw))
    {
    }

    [[nodiscard]] MarkupKind kind() const { return raw_.kind(); }
    /// As an element of its own kind; none if it is of another.
    template <class Element>
    [[nodiscard]] std::optional<Element> as() const
    {
        return kind() == Element::elementKind ? std::optional<Element>(std::in_place, *this) : std::nullopt;
    }

    [[nodiscard]] std::optional<Markup> parent() const;
    [[nodiscard]] qsizetype indexInParent() const { return raw_.node().indexInParent; }
    [[nodiscard]] qsizetype childCount() const { return raw_.node().childCount; }
    [[nodiscard]] MarkupChildren children() const;

    [[nodiscard]] MarkupIdentifier id() const { return {raw_.tree().rootId, raw_.index()}; }
    /// None where the parser tells no place, as for line breaks, and for what was built by hand.
    [[nodiscard]] std::optional<SourceRange> range() const { return raw_.parsedRange(); }
    [[nodiscard]] AbsoluteRawMarkup absoluteRaw() const { return {raw_, {id(), indexInParent()}}; }
    [[nodiscard]] const RawMarkup& raw() const { return raw_; }

    /// Whether it is the same element of the same document.
    friend bool operator==(const Markup& a, const Markup& b) { return a.id() == b.id(); }

protected:
    [[nodiscard]] QString text() const { return QString::fromUtf8(raw_.utf8Text()); }
    [[nodiscard]] std::optional<QString> optionalText() const;
    [[nodiscard]] std::optional<QString> optionalDetail() const;

private:
    friend class MarkupWalk;
    RawMarkup raw_;
};

} // namespace quor::markdown
