// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"

namespace quor::markdown {

/// A table. It has two children: a head, whose children are the cells of the first row, and a body, whose
/// children are the other rows, if any. All are handles; see `Markup`.
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

    /// In a parsed document both spans are 1.
    class Cell : public MarkupElement<MarkupKind::tableCell> {
    public:
        using MarkupElement::MarkupElement;
        [[nodiscard]] quint32 colspan() const { return raw().node().first; }
        [[nodiscard]] quint32 rowspan() const { return raw().node().second; }
    };

    /// One entry for each column.
    [[nodiscard]] ColumnAlignments columnAlignments() const { return raw().columnAlignments(); }
};

} // namespace quor::markdown
