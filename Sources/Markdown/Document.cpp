// SPDX-License-Identifier: MIT
#include "Markdown/Document.h"

#include "Markdown/Parsing/CmarkParser.h"

#include <QStringEncoder>

namespace quor::markdown {

namespace {

QByteArray utf8(QStringView text)
{
    // Stateless, so that half a surrogate pair at the end is not kept for later.
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    return encoder.encode(text);
}

} // namespace

Document::Document(QStringView parsing, const std::optional<QUrl>& source, ParseOptions options)
    : MarkupElement(Markup(parsedMarkdown(utf8(parsing), TextEncoding::validUtf8, source, options)))
{
}

Document::Document(QByteArrayView parsing, const std::optional<QUrl>& source, ParseOptions options)
    : MarkupElement(Markup(parsedMarkdown(parsing, TextEncoding::anyBytes, source, options)))
{
}

} // namespace quor::markdown
