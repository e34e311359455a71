// SPDX-License-Identifier: MIT
#include "ToolKit/Markdown/MarkdownToHTMLVisitor.h"

#include "Markdown/MarkupWalk.h"

using namespace quor::markdown;

namespace quor::toolkit {

namespace {

/// The tags around the children of an element.
struct Tags {
    QByteArrayView before;
    QByteArrayView after;
};

Tags tagsOf(MarkupKind kind)
{
    switch (kind) {
    case MarkupKind::blockQuote:
        return {"<blockquote>", "</blockquote>"};
    case MarkupKind::codeBlock:
    case MarkupKind::inlineCode:
        return {"<code>", "</code>"};
    case MarkupKind::listItem:
        return {"<li>", "</li>"};
    case MarkupKind::orderedList:
        return {"<ol>", "</ol>"};
    case MarkupKind::unorderedList:
        return {"<ul>", "</ul>"};
    case MarkupKind::paragraph:
        return {"<p>", "</p>"};
    case MarkupKind::emphasis:
        return {"<em>", "</em>"};
    case MarkupKind::strong:
        return {"<strong>", "</strong>"};
    case MarkupKind::strikethrough:
        return {"<del>", "</del>"};
    case MarkupKind::table:
        return {"<table>", "</table>"};
    case MarkupKind::tableHead:
        return {"<thead><tr>", "</tr></thead>"};
    case MarkupKind::tableBody:
        return {"<tbody>", "</tbody>"};
    case MarkupKind::tableRow:
        return {"<tr>", "</tr>"};
    case MarkupKind::lineBreak:
    case MarkupKind::softBreak:
        return {"<br/>", {}};
    // The tags of these have attributes or levels, and the writer makes them.
    case MarkupKind::heading:
    case MarkupKind::image:
    case MarkupKind::link:
    case MarkupKind::tableCell:
    // These have no tags.
    case MarkupKind::document:
    case MarkupKind::customBlock:
    case MarkupKind::thematicBreak:
    case MarkupKind::htmlBlock:
    case MarkupKind::blockDirective:
    case MarkupKind::customInline:
    case MarkupKind::inlineHTML:
    case MarkupKind::text:
    case MarkupKind::symbolLink:
    case MarkupKind::inlineAttributes:
    case MarkupKind::doxygenDiscussion:
    case MarkupKind::doxygenNote:
    case MarkupKind::doxygenParam:
    case MarkupKind::doxygenReturns:
        return {};
    }
    Q_UNREACHABLE();
}

bool isOfKind(const std::optional<Markup>& markup, MarkupKind kind)
{
    return markup && markup->kind() == kind;
}

std::optional<Markup> tableOfCell(const Markup& cell)
{
    std::optional<Markup> part = cell.parent();
    if (isOfKind(part, MarkupKind::tableRow)) {
        part = part->parent();
        if (!isOfKind(part, MarkupKind::tableBody))
            return std::nullopt;
    } else if (!isOfKind(part, MarkupKind::tableHead)) {
        return std::nullopt;
    }
    const std::optional<Markup> table = part->parent();
    return isOfKind(table, MarkupKind::table) ? table : std::nullopt;
}

QByteArrayView cellStyle(const Markup& cell)
{
    const std::optional<Markup> table = tableOfCell(cell);
    if (!table)
        return {};
    const auto alignment = table->raw().columnAlignment(static_cast<quint32>(cell.indexInParent()));
    if (!alignment)
        return {};
    switch (*alignment) {
    case ColumnAlignment::left:
        return "text-align: left";
    case ColumnAlignment::center:
        return "text-align: center";
    case ColumnAlignment::right:
        return "text-align: right; white-space: nowrap;";
    }
    return {};
}

/// Collects the result in UTF-8, the encoding of the tree.
class Writer {
public:
    void enter(const Markup& markup)
    {
        switch (markup.kind()) {
        case MarkupKind::heading:
            write("<h", level(markup), ">");
            break;
        case MarkupKind::image:
            write("<img src=\"", markup.raw().utf8Text(), "\">");
            break;
        case MarkupKind::link: {
            const QByteArrayView destination = markup.raw().utf8Text();
            write("<a href=\"", destination.isNull() ? QByteArrayView("#") : destination, "\">");
            break;
        }
        case MarkupKind::tableCell:
            write("<td style=\"", cellStyle(markup), "\">");
            break;
        case MarkupKind::text:
        case MarkupKind::htmlBlock:
        case MarkupKind::inlineHTML:
            html_.append(markup.raw().utf8Text());
            break;
        case MarkupKind::codeBlock:
        case MarkupKind::inlineCode:
            write(tagsOf(markup.kind()).before, markup.raw().utf8Text(), {});
            break;
        default:
            html_.append(tagsOf(markup.kind()).before);
        }
    }

    void leave(const Markup& markup)
    {
        switch (markup.kind()) {
        case MarkupKind::heading:
            return write("</h", level(markup), ">");
        case MarkupKind::link:
            return write({}, "</a>", {});
        case MarkupKind::tableCell:
            return write({}, "</td>", {});
        default:
            html_.append(tagsOf(markup.kind()).after);
        }
    }

    void reserve(qsizetype size) { html_.reserve(size); }
    [[nodiscard]] QString html() const { return QString::fromUtf8(html_); }

private:
    static QByteArray level(const Markup& heading) { return QByteArray::number(Heading(heading).level()); }

    void write(QByteArrayView before, QByteArrayView content, QByteArrayView after)
    {
        html_.append(before).append(content).append(after);
    }

    QByteArray html_;
};

} // namespace

QString MarkdownToHTMLVisitor::defaultVisit(const Markup& markup)
{
    constexpr qsizetype tagsOfAnElement = 8; // average length in bytes
    Writer writer;
    if (!markup.parent())
        writer.reserve(static_cast<qsizetype>(markup.raw().tree().texts.size())
            + tagsOfAnElement * static_cast<qsizetype>(markup.raw().node().subtreeCount));
    for (MarkupWalk walk(markup); walk.next();) {
        if (walk.event() == MarkupWalk::Event::leave) {
            writer.leave(walk.markup());
            continue;
        }
        writer.enter(walk.markup());
        // The children of an image are its alternate text, which the result does not have.
        if (walk.markup().kind() == MarkupKind::image)
            walk.skipChildren();
    }
    return writer.html();
}

} // namespace quor::toolkit
