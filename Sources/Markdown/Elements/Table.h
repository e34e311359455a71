// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"

namespace quor::markdown {

/// A table has two children, a head and a body. The head holds the cells of the first row directly, the body
/// holds rows, or nothing. Handles, as `Markup` tells.
class Table : public MarkupElement<MarkupKind::table> {
public:
    using MarkupElement::MarkupElement;
    using ColumnAlignment = markdown::ColumnAlignment;

    class Head : public MarkupElement<MarkupKind::tableHead> {
        using MarkupElement::MarkupElement;
    };

    class Body : public MarkupElement<MarkupKind::tableBody> {
        using MarkupElement::MarkupElement;
    };

    class Row : public MarkupElement<MarkupKind::tableRow> {
        using MarkupElement::MarkupElement;
    };

    /// The parser knows no spans, all of its cells have 1 and 1.
    class Cell : public MarkupElement<MarkupKind::tableCell> {
    public:
        using MarkupElement::MarkupElement;
        [[nodiscard]] quint32 colspan() const { return raw().node().first; }
        [[nodiscard]] quint32 rowspan() const { return raw().node().second; }
    };

    /// One for each column.
    [[nodiscard]] ColumnAlignments columnAlignments() const { return raw().columnAlignments(); }
};

} // namespace quor::markdown
