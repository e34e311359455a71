// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"
#include "Markdown/Parsing/ParseOptions.h"

#include <QByteArrayView>
#include <QUrl>

namespace quor::markdown {

/// A parsed Markdown text: the root of a tree of elements. The dialect is CommonMark with tables,
/// strikethrough and task lists.
///
/// Parsing never fails. NUL characters and invalid Unicode are read as U+FFFD. A text becomes one paragraph
/// of plain text if it is longer than half a gigabyte, if its tree would need far more memory than the text
/// (as with a long address that is referred to a million times), or if parsing would take seconds for each
/// megabyte (as with images that begin and never end).
///
/// Any thread. The process parses one text at a time, because cmark-gfm has global tables.
class Document : public MarkupElement<MarkupKind::document> {
public:
    using MarkupElement::MarkupElement;

    /// Parses the text. `source` is the URL of the text. It is not opened, only stored for `source()`.
    explicit Document(QStringView parsing, const std::optional<QUrl>& source = {}, ParseOptions options = {});
    /// Parses a text in UTF-8.
    explicit Document(
        QByteArrayView parsing, const std::optional<QUrl>& source = {}, ParseOptions options = {});

    [[nodiscard]] std::optional<QUrl> source() const { return raw().tree().source; }
};

} // namespace quor::markdown
