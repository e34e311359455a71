// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Logging/FileErrorLogger.h"

#include <QStringView>

/// The one call that all code uses to report something:
///
///     Logger::log(u"decodeError: "_s + reason, true);
///
/// adds "JSONHelper.decode:21: decodeError: ..." to the error log, with the place of the call. What
/// reports a failure goes to the file; what merely traces says `false` and is dropped. Nothing goes to
/// a console. Off, as logging is at start, a call costs the test of a flag. Any thread; never fails.
namespace quor::toolkit::Logger {

/// Writes "<file without extension letters>.<function without parentheses>:<line>: <message>".
/// `file` is a path and `function` a name or a signature, both UTF-8 and never null.
void write(QStringView message, const char* file, const char* function, int line);

inline void log(QStringView message, const char* file, const char* function, int line, bool toFile)
{
    if (toFile && FileErrorLogger::isEnabled())
        write(message, file, function, line);
}

/// The same for the place of the call. The builtins are what std::source_location is made of, which
/// clang 14 has not.
inline void log(QStringView message, bool toFile, const char* file = __builtin_FILE(),
    const char* function = __builtin_FUNCTION(), int line = __builtin_LINE())
{
    log(message, file, function, line, toFile);
}

} // namespace quor::toolkit::Logger
