// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Parsing/ParseOptions.h"
#include "Markdown/Raw/RawMarkup.h"

namespace quor::markdown {

enum class TextEncoding : quint8 {
    validUtf8,
    anyBytes, ///< invalid sequences are read as U+FFFD
};

/// Parses a Markdown text and returns the root of its tree, a node of kind `document`. See `Document`.
[[nodiscard]] RawMarkup parsedMarkdown(
    QByteArrayView text, TextEncoding encoding, const std::optional<QUrl>& source, ParseOptions options);

} // namespace quor::markdown
