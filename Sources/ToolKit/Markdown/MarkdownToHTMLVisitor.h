// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/MarkupVisitor.h"

namespace quor::toolkit {

/// Renders Markdown as HTML:
///
///     const QString html = MarkdownToHTMLVisitor().visit(markdown::Document(text));
///
/// Nothing stands between the elements, and nothing is escaped: raw HTML in the text stays HTML, so what
/// comes of a text from elsewhere is as trustworthy as that text. Soft breaks become breaks, the alignment of
/// a table's columns a style, and images lose their alternate texts. However deep the text is nested, it
/// takes time in proportion to the result, and no stack. Holds nothing; any thread.
class MarkdownToHTMLVisitor final : public markdown::MarkupVisitor<QString> {
public:
    /// The element with all below it, whichever its kind.
    QString defaultVisit(const markdown::Markup& markup) override;
};

} // namespace quor::toolkit
