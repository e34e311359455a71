// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <random>

namespace quor::tests {

/// Writes random Markdown with every kind of element within every other kind that can contain it. The same
/// seed always writes the same text.
class DocumentGenerator {
public:
    explicit DocumentGenerator(unsigned seed)
        : random_(seed)
    {
    }

    QByteArray blocks(int depth)
    {
        QByteArray result;
        for (unsigned i = 0; i <= below(4); ++i)
            result += block(depth) + (below(5) == 0 ? "" : "\n");
        return result;
    }

private:
    unsigned below(unsigned end) { return static_cast<unsigned>(random_() % end); }

    template <std::size_t count>
    QByteArray oneOf(const char* const (&choices)[count])
    {
        return choices[below(count)];
    }

    /// Puts `first` before the first line of `text` and `others` before the other lines.
    static QByteArray prefixed(QByteArray text, const QByteArray& first, const QByteArray& others)
    {
        if (text.endsWith('\n'))
            text.chop(1);
        return first + text.replace('\n', '\n' + others) + '\n';
    }

    QByteArray block(int depth)
    {
        if (depth > 0 && below(2) == 0)
            return container(depth - 1);
        switch (below(8)) {
        case 0:
            return QByteArray(1 + static_cast<int>(below(7)), '#') + ' ' + inlines(2) + '\n';
        case 1:
            return inlines(2) + '\n' + oneOf({"===", "---"}) + '\n';
        case 2:
            return oneOf({"***\n", "---\n", "    indented\n\n      code\n"});
        case 3:
            return oneOf({"```", "~~~ c++ \"x\" & more\n", "```ä\n"}) + "\na < b && \"c\"\n\n```\n~~~\n";
        case 4:
            return oneOf({"<div class=\"a\">\n", "<!-- b\n\n", "<?php\n"}) + "*raw* & such\n-->\n?>\n\n";
        case 5:
            return table();
        case 6:
            return "[r]: <to here> \"The & title\"\n[ä]: /x\n";
        default:
            return inlines(3) + '\n';
        }
    }

    QByteArray container(int depth)
    {
        const QByteArray content = blocks(depth);
        switch (below(4)) {
        case 0:
            return prefixed(content, "> ", below(4) == 0 ? "" : "> ");
        case 1:
            return prefixed(content, oneOf({"7. ", "1) ", "0. "}), "   ");
        case 2:
            return prefixed(content, oneOf({"- [x] ", "- [ ] ", "* [X] "}), "  ");
        default:
            return prefixed(content, oneOf({"- ", "* ", "+ "}), "  ");
        }
    }

    QByteArray table()
    {
        const unsigned columns = 1 + below(4);
        QByteArray result = row(columns) + '|';
        for (unsigned i = 0; i < columns; ++i)
            result += oneOf({"-|", ":--|", ":-:|", " -: |"});
        result += '\n';
        for (unsigned rows = below(3); rows > 0; --rows)
            result += row(columns + below(3) - 1);
        return result;
    }

    QByteArray row(unsigned columns)
    {
        QByteArray result = "|";
        for (unsigned i = 0; i < columns; ++i)
            result += inlines(1).replace('\n', ' ').replace('|', "\\|") + '|';
        return result + '\n';
    }

    QByteArray inlines(int depth)
    {
        QByteArray result;
        for (unsigned i = 0; i <= below(4); ++i)
            result += inlineElement(depth);
        return result;
    }

    QByteArray inlineElement(int depth)
    {
        if (depth == 0 || below(3) == 0)
            return oneOf({"word", " \"quoted\" 'it's' -- --- ... ", "ß 😀 \xcc\x81", "`co|de`", "`` a`b ``",
                "<b class='x'>", "<https://a.b/?c=d&e>", "\n", "  \n", "\\\n", "&amp; &#0; &ouml; & <", "\\*",
                "[", "](", "**", "_", "~~~", "\"", "'", "[r]", "[no][r]", "![ä][]", "a|b"});
        const QByteArray content = inlines(depth - 1);
        switch (below(6)) {
        case 0:
            return '*' + content + '*';
        case 1:
            return "__" + content + "__";
        case 2:
            return "~~" + content + '~' + (below(3) ? "~" : "");
        case 3:
            return '[' + content + oneOf({"](u \"t\")", "](<a b>)", "]()", "](x&y 'q\"')"});
        case 4:
            return "![" + content + oneOf({"](i.png)", "]( 'only' )", "]()"});
        default:
            return ' ' + content + ' ';
        }
    }

    std::mt19937 random_;
};

} // namespace quor::tests
