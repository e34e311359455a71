// SPDX-License-Identifier: MIT
// A text of 1 MB to HTML. The floor is cmark-gfm alone, parsing and rendering the same text.
#include "ToolKit/Markdown/MarkdownToHTMLVisitor.h"

#include <benchmark/benchmark.h>
#include <cmark-gfm-core-extensions.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype size = 1 << 20;

/// Usual text: prose with some marks, lists, code and a few tables.
QString prose()
{
    const QString page = uR"(# Working on the *release*

We met on Tuesday to talk about what is left before the "spring" release -- and it's less than we feared. The
[tracker](https://tracker.example.com/issues?state=open) lists 23 issues, of which **nine** are about the
importer; see `Importer::readAll` for the one that bites most people. Größere Änderungen kommen später.

- [x] write the notes
- [ ] ask ~~Anna~~ Béatrice about the *licence*
- [ ] build packages
  1. for Debian
  2. for Fedora

> The user doesn't care how it is stored, as long as it's there tomorrow.

```cpp
for (const auto& entry : entries)
    total += entry.duration; // in seconds
```

| task | hours | who |
|:-----|------:|:---:|
| importer | 12.5 | Anna |
| packages | 3 | Karl |

)"_s;
    return page.repeated(size / page.toUtf8().size() + 1);
}

/// A text with more marks than words.
QString marks()
{
    return u"*a* **b** `c` [d](e) ![f](g) \"h\" -- <i>j</i> ~~k~~ &amp; \\*\n\n"_s.repeated(size / 65);
}

QString words()
{
    return u"Plain words that nobody has marked up in any way at all, line after line of them.\n\n"_s
        .repeated(size / 83);
}

void byHand(benchmark::State& state, QString (*text)())
{
    constexpr int options = CMARK_OPT_SOURCEPOS | CMARK_OPT_SMART | CMARK_OPT_UNSAFE;
    const QByteArray utf8 = text().toUtf8();
    cmark_gfm_core_extensions_ensure_registered();
    for ([[maybe_unused]] const auto _ : state) {
        cmark_parser* parser = cmark_parser_new(options);
        for (const char* name : {"table", "strikethrough", "tasklist"})
            cmark_parser_attach_syntax_extension(parser, cmark_find_syntax_extension(name));
        cmark_parser_feed(parser, utf8.constData(), static_cast<std::size_t>(utf8.size()));
        cmark_node* root = cmark_parser_finish(parser);
        // Without source positions, which our HTML does not have either.
        char* html = cmark_render_html(root, options & ~CMARK_OPT_SOURCEPOS, nullptr);
        benchmark::DoNotOptimize(html);
        std::free(html);
        cmark_node_free(root);
        cmark_parser_free(parser);
    }
    state.SetBytesProcessed(state.iterations() * utf8.size());
}

void toHTML(benchmark::State& state, QString (*text)())
{
    const QString markdown = text();
    for ([[maybe_unused]] const auto _ : state)
        benchmark::DoNotOptimize(
            quor::toolkit::MarkdownToHTMLVisitor().visit(quor::markdown::Document(markdown)));
    state.SetBytesProcessed(state.iterations() * markdown.toUtf8().size());
}

void parseAlone(benchmark::State& state, QString (*text)())
{
    const QString markdown = text();
    for ([[maybe_unused]] const auto _ : state)
        benchmark::DoNotOptimize(quor::markdown::Document(markdown));
}

BENCHMARK_CAPTURE(byHand, prose, prose)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(toHTML, prose, prose)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(parseAlone, prose, prose)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(byHand, marks, marks)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(toHTML, marks, marks)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(byHand, words, words)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(toHTML, words, words)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
