// SPDX-License-Identifier: MIT
#include "Markdown/Parsing/SyntaxExtensions.h"

#include "Markdown/Parsing/CmarkArena.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm/syntax_extension.h>

#include <array>
#include <bit>
#include <cstdint>

namespace quor::markdown {

namespace {

cmark_node* matchNothing(
    cmark_syntax_extension*, cmark_parser*, cmark_node*, unsigned char, cmark_inline_parser*)
{
    return nullptr;
}

/// Joins a closing quote with its opening quote, as cmark-gfm does without an extension. It would search back
/// to the same opening quote for each closing quote that follows. So the closing quote becomes an opening one
/// itself, at which the next search ends, and which is known by being both.
delimiter* joinQuotes(
    cmark_syntax_extension*, cmark_parser*, cmark_inline_parser*, delimiter* opener, delimiter* closer)
{
    CmarkArena::checkTime();
    if (!opener->can_close)
        cmark_node_set_literal(opener->inl_text, opener->delim_char == '"' ? "“" : "‘");
    closer->can_open = true;
    return closer->next;
}

cmark_syntax_extension* quotes()
{
    static cmark_llist single{nullptr, std::bit_cast<void*>(std::uintptr_t{'\''})};
    static cmark_llist both{&single, std::bit_cast<void*>(std::uintptr_t{'"'})};
    static cmark_syntax_extension extension{};
    extension.match_inline = matchNothing;
    extension.insert_inline_from_delim = joinQuotes;
    extension.special_inline_chars = &both;
    return &extension;
}

cmark_syntax_extension* core(const char* name)
{
    cmark_gfm_core_extensions_ensure_registered();
    return cmark_find_syntax_extension(name);
}

/// Differs from that of cmark-gfm only in that its searches can be interrupted. Those that end at tildes of
/// another number find nothing, and are repeated for each closing tilde that follows.
cmark_syntax_extension* strikethrough()
{
    static const cmark_syntax_extension* const original = core("strikethrough");
    static cmark_syntax_extension extension = *original;
    extension.insert_inline_from_delim
        = [](cmark_syntax_extension* self, cmark_parser* parser, cmark_inline_parser* inlines,
              delimiter* opener, delimiter* closer) {
              CmarkArena::checkTime();
              return original->insert_inline_from_delim(self, parser, inlines, opener, closer);
          };
    return &extension;
}

} // namespace

std::span<cmark_syntax_extension* const> syntaxExtensions(bool hasSmartPunctuation)
{
    static const std::array all{core("table"), strikethrough(), core("tasklist"), quotes()};
    return std::span(all).first(hasSmartPunctuation ? all.size() : all.size() - 1);
}

} // namespace quor::markdown
