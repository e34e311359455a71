// SPDX-License-Identifier: MIT
#pragma once

#include <cmark-gfm-extension_api.h>

#include <span>

namespace quor::markdown {

/// The extensions of cmark-gfm that a parser of ours attaches, in this order. Their results are those of
/// cmark-gfm, but they keep its search for matching delimiters short, and interruptible by
/// `CmarkArena::checkTime`. Any thread.
[[nodiscard]] std::span<cmark_syntax_extension* const> syntaxExtensions(bool hasSmartPunctuation);

} // namespace quor::markdown
