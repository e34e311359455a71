// SPDX-License-Identifier: MIT
#include "ToolKit/Markdown/MarkdownParser.h"
#include "ToolKit/MarkdownReference.h"

#include <QGuiApplication>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*argc, *argv);
    return 0;
}

// Any interface text, in UTF-16 if the first byte is odd: the parser must agree with the regular expressions
// that define the marks.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    constexpr std::size_t longest = 2000; // the regular expressions are slow
    if (size == 0 || size > longest)
        return 0;
    const auto* content = reinterpret_cast<const char*>(bytes) + 1;
    const auto length = static_cast<qsizetype>(size - 1);
    QString text = QString::fromUtf8(content, length);
    if (bytes[0] % 2 == 1) {
        text.resize(length / 2);
        std::memcpy(text.data(), content, static_cast<std::size_t>(length / 2) * 2);
    }
    quor::toolkit::MarkdownParser parser(text, {}, Qt::red, {}, quor::platform::Bundle(QString()));
    if (quor::test::plainMarkdown(parser.parse()) != quor::test::markdownReference(text))
        std::abort();
    return 0;
}
