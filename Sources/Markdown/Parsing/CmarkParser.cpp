// SPDX-License-Identifier: MIT
#include "Markdown/Parsing/CmarkParser.h"

#include "Markdown/Parsing/CmarkArena.h"
#include "Markdown/Parsing/InlineTurn.h"
#include "Markdown/Parsing/MarkupConverterState.h"
#include "Markdown/Parsing/SyntaxExtensions.h"
#include "Markdown/Raw/RawMarkupBuilder.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace quor::markdown {

namespace {

// Usual texts need 20 to 40 bytes of memory a byte, texts that are nothing but marks about 300.
constexpr std::size_t memoryForAnyText = std::size_t{64} << 20;
constexpr std::size_t memoryPerByteOfMarks = 512;
constexpr std::size_t mostMemoryForMarks = std::size_t{768} << 20;
constexpr std::size_t memoryPerByte = 64;
// Ordinary text takes less than half a microsecond a byte. cmark-gfm has loops that take minutes a megabyte,
// for instance for links within images that never end.
constexpr std::chrono::milliseconds timeForAnyText{500};
constexpr std::chrono::microseconds timePerByte{2};
constexpr std::size_t smallestNode = 160; // bytes of a node of cmark-gfm
constexpr qsizetype longestText = qsizetype{1} << 29; // cmark-gfm aborts at twice that

int cmarkOptions(TextEncoding encoding, ParseOptions options)
{
    int result = CMARK_OPT_DEFAULT;
    if (!options.testFlag(ParseOption::disableSourcePosOptions))
        result |= CMARK_OPT_SOURCEPOS;
    if (!options.testFlag(ParseOption::disableSmartOptions))
        result |= CMARK_OPT_SMART;
    if (encoding == TextEncoding::anyBytes)
        result |= CMARK_OPT_VALIDATE_UTF8;
    return result;
}

/// Feeds the text in small pieces. A line can take time in proportion to the depth of the open blocks without
/// a request for memory.
void feed(cmark_parser* parser, QByteArrayView text)
{
    constexpr qsizetype pieceSize = 64;
    for (qsizetype at = 0; at < text.size(); at += pieceSize) {
        const qsizetype size = std::min(pieceSize, text.size() - at);
        cmark_parser_feed(parser, text.data() + at, static_cast<std::size_t>(size));
        CmarkArena::checkTime();
    }
}

/// Returns null if a limit of the arena was exceeded. No local variable of this function must need a
/// destructor, because the jump runs none.
cmark_node* parsedNode(CmarkArena& arena, InlineTurn& turn, QByteArrayView text, int options)
{
    std::jmp_buf escape;
    if (setjmp(escape) != 0) {
        turn.end();
        arena.setEscape(nullptr);
        return nullptr;
    }
    arena.setEscape(&escape);
    cmark_parser* parser = cmark_parser_new_with_mem(options, CmarkArena::allocator());
    for (cmark_syntax_extension* extension : syntaxExtensions((options & CMARK_OPT_SMART) != 0))
        cmark_parser_attach_syntax_extension(parser, extension);
    feed(parser, text);
    turn.begin(parser);
    cmark_node* root = cmark_parser_finish(parser);
    turn.end();
    arena.setEscape(nullptr);
    return root;
}

std::size_t memoryLimit(qsizetype textSize)
{
    const auto size = static_cast<std::size_t>(textSize);
    const std::size_t limit = std::max(
        std::min(memoryForAnyText + size * memoryPerByteOfMarks, mostMemoryForMarks), size * memoryPerByte);
    return std::min(limit, std::size_t{std::numeric_limits<quint32>::max()}); // the tree addresses 32 bits
}

bool convertParsed(
    QByteArrayView text, TextEncoding encoding, ParseOptions options, RawMarkupBuilder& builder)
{
    if (text.size() > longestText)
        return false;
    InlineTurn turn;
    CmarkArena arena(
        memoryLimit(text.size()), timeForAnyText + timePerByte * text.size(), [&turn] { turn.offer(); });
    cmark_node* root = parsedNode(arena, turn, text, cmarkOptions(encoding, options));
    if (!root)
        return false;
    // More than there can be nodes, so that they never move. Memory that is not used costs nothing.
    builder.reserve(static_cast<qsizetype>(arena.size() / smallestNode), text.size());
    MarkupConverterState(root, options, builder).convert();
    return true;
}

void buildPlainText(QByteArrayView text, RawMarkupBuilder& builder)
{
    const QByteArray whole
        = QString::fromUtf8(text).replace(QChar::Null, QChar::ReplacementCharacter).toUtf8();
    builder.begin(RawMarkupBuilder::Content{MarkupKind::document});
    builder.begin(RawMarkupBuilder::Content{MarkupKind::paragraph});
    builder.leaf(RawMarkupBuilder::Content{MarkupKind::text, whole});
    builder.end();
    builder.end();
}

} // namespace

RawMarkup parsedMarkdown(
    QByteArrayView text, TextEncoding encoding, const std::optional<QUrl>& source, ParseOptions options)
{
    RawMarkupBuilder builder;
    if (!convertParsed(text, encoding, options, builder))
        buildPlainText(text, builder);
    RawMarkup root = builder.finish(source);
    Q_ASSERT_X(root.kind() == MarkupKind::document, "parsedMarkdown",
        "cmark top-level conversion didn't produce a RawMarkup.document");
    return root;
}

} // namespace quor::markdown
