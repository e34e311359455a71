// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/MarkupVisitor.h"

namespace quor::toolkit {

/// Renders Markdown as HTML:
///
///     const QString html = MarkdownToHTMLVisitor().visit(markdown::Document(text));
///
/// The result has no white space between elements, and nothing is escaped: raw HTML in the text stays HTML,
/// so the result is as trustworthy as the text. Soft breaks become "<br/>", the alignment of a table column
/// becomes a style of its cells, and the alternate texts of images are left out.
///
/// Takes time in proportion to the result, and no stack for the depth of the tree. Stateless; any thread.
class MarkdownToHTMLVisitor final : public markdown::MarkupVisitor<QString> {
public:
    /// Returns the HTML of an element of any kind and of its descendants.
    QString defaultVisit(const markdown::Markup& markup) override;
};

} // namespace quor::toolkit
