// SPDX-License-Identifier: MIT
#include "Markdown/Parsing/CmarkParser.h"

#include "Markdown/Parsing/CmarkArena.h"
#include "Markdown/Parsing/MarkupConverterState.h"
#include "Markdown/Raw/RawMarkupBuilder.h"

#include <cmark-gfm-core-extensions.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <mutex>

namespace quor::markdown {

namespace {

// A text of brackets alone, the worst that is not hostile, makes cmark-gfm request about 300 bytes a byte.
constexpr std::size_t bytesOfMemoryPerByte = 512;
constexpr std::size_t memoryForAnyText = std::size_t{64} << 20;
// Ordinary text takes less than half a microsecond a byte. cmark-gfm has loops that take minutes a megabyte,
// for instance for links within images that never end.
constexpr std::chrono::seconds timeForAnyText{2};
constexpr std::chrono::microseconds timePerByte{2};
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

/// Returns null if a limit of the arena was exceeded. No local variable of this function must need a
/// destructor, because the jump runs none.
cmark_node* parsedNode(CmarkArena& arena, QByteArrayView text, int options)
{
    std::jmp_buf escape;
    if (setjmp(escape) != 0) {
        arena.setEscape(nullptr);
        return nullptr;
    }
    arena.setEscape(&escape);
    cmark_parser* parser = cmark_parser_new_with_mem(options, CmarkArena::allocator());
    for (const char* name : {"table", "strikethrough", "tasklist"})
        cmark_parser_attach_syntax_extension(parser, cmark_find_syntax_extension(name));
    cmark_parser_feed(parser, text.data(), static_cast<std::size_t>(text.size()));
    cmark_node* root = cmark_parser_finish(parser);
    arena.setEscape(nullptr);
    return root;
}

bool convertParsed(
    QByteArrayView text, TextEncoding encoding, ParseOptions options, RawMarkupBuilder& builder)
{
    if (text.size() > longestText)
        return false;
    // cmark-gfm enters the special characters of a parser's extensions into global tables.
    static std::mutex oneAtATime;
    const std::lock_guard lock(oneAtATime);
    cmark_gfm_core_extensions_ensure_registered();
    const std::size_t limit
        = std::min(memoryForAnyText + static_cast<std::size_t>(text.size()) * bytesOfMemoryPerByte,
            std::size_t{std::numeric_limits<quint32>::max()}); // the tree addresses its texts in 32 bits
    CmarkArena arena(limit, timeForAnyText + timePerByte * text.size());
    cmark_node* root = parsedNode(arena, text, cmarkOptions(encoding, options));
    if (!root)
        return false;
    // Few texts have more nodes, and reserved memory that is not used costs nothing.
    builder.reserve(text.size() / 8 + 16, text.size());
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
