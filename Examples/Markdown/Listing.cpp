// SPDX-License-Identifier: MIT
#include "Listing.h"

#include <Markdown/MarkupVisitor.h>
#include <Markdown/MarkupWalk.h>

using namespace quor::markdown;
using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString& text)
{
    QString result = u"\""_s;
    for (const QChar character : text) {
        if (character == u'"' || character == u'\\')
            result += u'\\' + character;
        else if (character == u'\n')
            result += u"\\n"_s;
        else if (character < u' ' || character == QChar(0x7f))
            result += u"\\x%1"_s.arg(character.unicode(), 2, 16, QLatin1Char('0'));
        else
            result += character;
    }
    return result + u'"';
}

QString property(const QString& name, const std::optional<QString>& text)
{
    return text ? u' ' + name + u": "_s + quoted(*text) : QString();
}

QString alignmentName(const std::optional<ColumnAlignment>& alignment)
{
    if (!alignment)
        return u"-"_s;
    switch (*alignment) {
    case ColumnAlignment::left:
        return u"left"_s;
    case ColumnAlignment::center:
        return u"center"_s;
    case ColumnAlignment::right:
        return u"right"_s;
    }
    return {};
}

/// Describes the contents of one element, without its children.
class ContentsDescriber : public MarkupVisitor<QString> {
public:
    QString defaultVisit(const Markup&) override { return {}; }
    QString visitCodeBlock(const CodeBlock& block) override
    {
        return u' ' + quoted(block.code()) + property(u"language"_s, block.language());
    }
    QString visitHeading(const Heading& heading) override { return u" level: %1"_s.arg(heading.level()); }
    QString visitHTMLBlock(const HTMLBlock& block) override { return u' ' + quoted(block.rawHTML()); }
    QString visitListItem(const ListItem& item) override
    {
        if (!item.checkbox())
            return {};
        return *item.checkbox() == Checkbox::checked ? u" checkbox: checked"_s : u" checkbox: unchecked"_s;
    }
    QString visitOrderedList(const OrderedList& list) override
    {
        return u" start: %1"_s.arg(list.startIndex());
    }
    QString visitInlineCode(const InlineCode& code) override { return u' ' + quoted(code.code()); }
    QString visitImage(const Image& image) override
    {
        return property(u"source"_s, image.source()) + property(u"title"_s, image.title());
    }
    QString visitInlineHTML(const InlineHTML& html) override { return u' ' + quoted(html.rawHTML()); }
    QString visitLink(const Link& link) override
    {
        return property(u"destination"_s, link.destination()) + property(u"title"_s, link.title());
    }
    QString visitText(const Text& text) override { return u' ' + quoted(text.string()); }
    QString visitTable(const Table& table) override
    {
        QStringList names;
        for (const auto& alignment : table.columnAlignments())
            names += alignmentName(alignment);
        return u" columns: "_s + names.join(u' ');
    }
};

QString place(const std::optional<SourceRange>& range)
{
    // The range of an empty document ends before it starts.
    if (!range || range->end.line < range->start.line)
        return {};
    return u" @%1:%2-%3:%4"_s.arg(range->start.line)
        .arg(range->start.column)
        .arg(range->end.line)
        .arg(range->end.column);
}

} // namespace

QByteArray listing(const Markup& root)
{
    constexpr qsizetype deepestIndentation = 40;
    QByteArray result;
    qsizetype depth = -1;
    for (MarkupWalk walk(root); walk.next();) {
        if (walk.event() == MarkupWalk::Event::leave) {
            --depth;
            continue;
        }
        ++depth;
        result += QByteArray(2 * std::min(depth, deepestIndentation), ' ');
        if (depth > deepestIndentation)
            result += '(' + QByteArray::number(depth) + ") ";
        const Markup& markup = walk.markup();
        const QString line = markupKindName(markup.kind()) + ContentsDescriber().visit(markup)
            + place(markup.range()) + u'\n';
        result += line.toUtf8();
    }
    return result;
}
