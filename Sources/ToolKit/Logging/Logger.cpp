// SPDX-License-Identifier: MIT
#include "ToolKit/Logging/Logger.h"

#include <QString>
#include <QStringBuilder>

#include <string>
#include <string_view>

namespace quor::toolkit::Logger {

namespace {

// The dot stays, to separate the names of file and function.
std::string_view withoutExtensionLetters(std::string_view path)
{
    path.remove_prefix(path.rfind('/') + 1);
    const auto dot = path.rfind('.');
    return dot == std::string_view::npos ? path : path.substr(0, dot + 1);
}

std::string withoutParentheses(std::string function)
{
    const auto open = function.find('(');
    const auto close = function.rfind(')');
    if (open != std::string::npos && close != std::string::npos && open < close)
        function.erase(open, close - open + 1);
    return function;
}

} // namespace

void write(QStringView message, const char* file, const char* function, int line)
{
    std::string place(withoutExtensionLetters(file));
    place += withoutParentheses(function);
    place += ':';
    place += std::to_string(line);
    place += ": ";
    FileErrorLogger::write(QString(QString::fromUtf8(place) % message));
}

} // namespace quor::toolkit::Logger
