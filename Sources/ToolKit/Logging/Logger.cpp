// SPDX-License-Identifier: MIT
#include "ToolKit/Logging/Logger.h"

#include <QByteArray>

#include <string_view>

namespace quor::toolkit::Logger {

namespace {

QByteArrayView view(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

// The dot stays, to separate the names of file and function.
std::string_view withoutExtensionLetters(std::string_view path)
{
    path.remove_prefix(path.rfind('/') + 1);
    const auto dot = path.rfind('.');
    return dot == std::string_view::npos ? path : path.substr(0, dot + 1);
}

void appendWithoutParentheses(QByteArray& text, std::string_view function)
{
    const auto open = function.find('(');
    const auto close = function.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || open > close) {
        text += view(function);
        return;
    }
    text += view(function.substr(0, open));
    text += view(function.substr(close + 1));
}

} // namespace

void write(QStringView message, const char* file, const char* function, int line)
{
    constexpr qsizetype usualPlace = 100; // bytes
    QByteArray text;
    text.reserve(usualPlace + message.size());
    text += view(withoutExtensionLetters(file));
    appendWithoutParentheses(text, function);
    text += ':';
    text += QByteArray::number(line);
    text += ": ";
    text += message.toUtf8();
    FileErrorLogger::write(QByteArrayView(text));
}

} // namespace quor::toolkit::Logger
