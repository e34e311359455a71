// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Parsing/ParseOptions.h"
#include "Markdown/Raw/RawMarkup.h"

namespace quor::markdown {

enum class TextEncoding : quint8 {
    validUtf8,
    anyBytes, ///< what is no UTF-8 becomes U+FFFD
};

/// The raw tree of a Markdown text, whose root is a document.
[[nodiscard]] RawMarkup parsedMarkdown(
    QByteArrayView text, TextEncoding encoding, const std::optional<QUrl>& source, ParseOptions options);

} // namespace quor::markdown
