// SPDX-License-Identifier: MIT
#include "ToolKit/Markdown/MarkdownMarks.h"

#include "ToolKit/Markdown/BoldMarkFinder.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace quor::toolkit {

namespace {

bool isWord(UChar32 character)
{
    constexpr UChar32 nonJoiner = 0x200C;
    constexpr UChar32 joiner = 0x200D;
    constexpr auto categories = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;
    return u_isUAlphabetic(character) || (U_GET_GC_MASK(character) & categories) != 0
        || character == nonJoiner || character == joiner;
}

bool isOneOf(UChar32 character, QStringView set)
{
    return U_IS_BMP(character) && set.contains(QChar(static_cast<char16_t>(character)));
}

bool isLinkText(UChar32 character)
{
    return isWord(character) || u_isUWhiteSpace(character) || isOneOf(character, u"&-.");
}

bool isDestination(UChar32 character)
{
    return isWord(character) || isOneOf(character, u"./?-:=#@");
}

bool isImageName(UChar32 character)
{
    return isWord(character) || isOneOf(character, u".-");
}

/// The end of the run of characters that begins at `from` and for which `belongs` is true.
template <typename Belongs>
qsizetype runEnd(QStringView text, qsizetype from, Belongs belongs)
{
    qsizetype end = from;
    while (from < text.size()) {
        UChar32 character = 0;
        U16_NEXT(text.utf16(), from, text.size(), character);
        if (!belongs(character))
            break;
        end = from;
    }
    return end;
}

} // namespace

std::vector<MarkdownMark> linkMarks(QStringView text)
{
    std::vector<MarkdownMark> marks;
    qsizetype next = 0;
    // Neither run can contain "[", so the search continues after both, and reads each character once.
    for (qsizetype at = text.indexOf(u'['); at >= 0; at = text.indexOf(u'[', next)) {
        const qsizetype content = at + 1;
        next = runEnd(text, content, isLinkText);
        const qsizetype contentEnd = next;
        if (contentEnd == content || !text.sliced(contentEnd).startsWith(u"]("))
            continue;
        const qsizetype destination = contentEnd + 2;
        next = runEnd(text, destination, isDestination);
        if (next == destination || next == text.size() || text[next] != u')')
            continue;
        const qsizetype destinationEnd = next++;
        marks.push_back({{at, 1}, {content, contentEnd - content}, {contentEnd, next - contentEnd},
            {destination, destinationEnd - destination}});
    }
    return marks;
}

std::vector<MarkdownMark> boldMarks(QStringView text)
{
    BoldMarkFinder finder(text);
    std::vector<MarkdownMark> marks;
    while (const auto mark = finder.next())
        marks.push_back(*mark);
    return marks;
}

std::vector<MarkdownMark> imageMarks(QStringView text)
{
    constexpr QStringView opening = u"![](";
    std::vector<MarkdownMark> marks;
    qsizetype next = 0;
    for (qsizetype at = text.indexOf(opening); at >= 0; at = text.indexOf(opening, next)) {
        const qsizetype name = at + opening.size();
        const qsizetype nameEnd = runEnd(text, name, isImageName);
        next = nameEnd;
        if (nameEnd == name || nameEnd == text.size() || text[nameEnd] != u')')
            continue;
        next = nameEnd + 1;
        marks.push_back({{at, next - at}, {next, 0}, {next, 0}, {name, nameEnd - name}});
    }
    return marks;
}

} // namespace quor::toolkit
