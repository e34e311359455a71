// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Logging/FileErrorLogger.h"

#include <QStringView>

/// Reports messages to the error log:
///
///     Logger::log(u"decodeError: "_s + reason, true);
///
/// appends "JSONHelper.decode:21: decodeError: ...", with the file, function and line of the call. With
/// `true` the message is written if the log is enabled. With `false`, for messages that only trace what
/// happens, it is dropped. While the log is disabled, a call costs no more than the test of a flag. Any
/// thread. Never fails.
namespace quor::toolkit::Logger {

/// Writes "<file without extension letters>.<function without parentheses>:<line>: <message>".
/// `file` is a path and `function` a name or a signature, both UTF-8 and never null.
void write(QStringView message, const char* file, const char* function, int line);

inline void log(QStringView message, const char* file, const char* function, int line, bool toFile)
{
    if (toFile && FileErrorLogger::isEnabled())
        write(message, file, function, line);
}

/// The same with the place of the call. Uses builtins, as clang 14 has no std::source_location.
inline void log(QStringView message, bool toFile, const char* file = __builtin_FILE(),
    const char* function = __builtin_FUNCTION(), int line = __builtin_LINE())
{
    log(message, file, function, line, toFile);
}

} // namespace quor::toolkit::Logger
