// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/UtilsTexts.h"

#include "Markdown/Document.h"
#include "ToolKit/Data/Ciphers/Base64.h"
#include "ToolKit/JavaScript/Utf8Text.h"
#include "ToolKit/Markdown/MarkdownToHTMLVisitor.h"

namespace quor::toolkit::texts {

QString base64Encode(const QString& text)
{
    return text.isValidUtf16() ? base64EncodedString(text.toUtf8()) : QString();
}

QString base64Decode(const QString& text)
{
    const auto data = dataFromBase64(text, Base64Decoding::strict);
    return data ? utf8Text(*data).value_or(QString()) : QString();
}

QString markdownToHTML(const QString& text)
{
    const markdown::Document document{QStringView(text)};
    MarkdownToHTMLVisitor visitor;
    QString html;
    for (const auto& child : document.children())
        html += visitor.visit(child);
    return html;
}

} // namespace quor::toolkit::texts
