// SPDX-License-Identifier: MIT
#pragma once

#include "Markdown/Elements/MarkupElement.h"
#include "Markdown/Parsing/ParseOptions.h"

#include <QByteArrayView>
#include <QUrl>

namespace quor::markdown {

/// A whole text as a tree: CommonMark with tables, strikethrough and task lists. Parsing never fails: NUL
/// and what is not valid Unicode count as U+FFFD, and a text made to swell beyond all measure, as by naming a
/// long address a million times, or to take seconds a megabyte, as by images that begin and never end, or of
/// more than half a gigabyte, comes out as one paragraph of plain text.
/// Any thread; texts are parsed one at a time, since the parser below shares tables.
class Document : public MarkupElement<MarkupKind::document> {
public:
    using MarkupElement::MarkupElement;

    /// `source` is where the text came from, to be asked for later.
    explicit Document(QStringView parsing, const std::optional<QUrl>& source = {}, ParseOptions options = {});
    /// The same from UTF-8.
    explicit Document(
        QByteArrayView parsing, const std::optional<QUrl>& source = {}, ParseOptions options = {});

    [[nodiscard]] std::optional<QUrl> source() const { return raw().tree().source; }
};

} // namespace quor::markdown
