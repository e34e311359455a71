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
/// of plain text if
/// - it is longer than half a gigabyte,
/// - the parser would need more memory than the larger of 768 MB and 64 bytes for each byte of the text, as
///   for megabytes of marks with hardly a word between them, or
/// - the parser would take more than half a second of processor time and 2 seconds for each megabyte, as for
///   images that begin and never end.
///
/// Any thread. The process parses inline elements of one text at a time, because cmark-gfm has global tables.
/// Texts on several threads take turns of a few milliseconds.
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
