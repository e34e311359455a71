// SPDX-License-Identifier: MIT
#include "Markdown/Parsing/SyntaxExtensions.h"

#include "Markdown/Parsing/CmarkArena.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm/syntax_extension.h>

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
    cmark_syntax_extension* extension = cmark_syntax_extension_new("quotes");
    extension->match_inline = matchNothing;
    extension->insert_inline_from_delim = joinQuotes;
    for (const std::uintptr_t character : {'"', '\''})
        extension->special_inline_chars = cmark_llist_append(cmark_get_default_mem_allocator(),
            extension->special_inline_chars, reinterpret_cast<void*>(character));
    return extension;
}

cmark_syntax_extension* core(const char* name)
{
    cmark_gfm_core_extensions_ensure_registered();
    return cmark_find_syntax_extension(name);
}

/// Searches of strikethrough that end at tildes of another number find nothing and begin again.
cmark_syntax_extension* strikethrough()
{
    static const cmark_syntax_extension* const original = core("strikethrough");
    cmark_syntax_extension* extension = cmark_syntax_extension_new(original->name);
    *extension = *original;
    extension->insert_inline_from_delim
        = [](cmark_syntax_extension* self, cmark_parser* parser, cmark_inline_parser* inlines,
              delimiter* opener, delimiter* closer) {
              CmarkArena::checkTime();
              return original->insert_inline_from_delim(self, parser, inlines, opener, closer);
          };
    return extension;
}

} // namespace

const std::vector<cmark_syntax_extension*>& syntaxExtensions(bool hasSmartPunctuation)
{
    static const std::vector<cmark_syntax_extension*> plain{core("table"), strikethrough(), core("tasklist")};
    static const std::vector<cmark_syntax_extension*> smart{plain[0], plain[1], plain[2], quotes()};
    return hasSmartPunctuation ? smart : plain;
}

} // namespace quor::markdown
