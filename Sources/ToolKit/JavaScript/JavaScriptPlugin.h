// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/JSValue.h"

#include <QHash>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

namespace quor::toolkit {

/// A plug-in: a folder and its translated texts, with which scripts are run, each in a fresh engine of its
/// own. Scripts see their parameters, `utils` and the helpers as globals, and nothing else beside the
/// language; Documentation/plugins.md tells their side.
///
/// `execute` runs on the calling thread and blocks it, also while a script waits for a server (60 seconds
/// at most for each request). Any number of threads may run the same plug-in. A thread wants a
/// stack of a megabyte or more.
struct JavaScriptPlugin {
    QUrl baseURL; ///< of a local folder: scripts read and write below it, never outside
    QHash<QString, QString> localization; ///< key to text
    /// Gets what a script throws and does not catch, with line and column where the engine knows them, on
    /// the thread of the script, after the error log got it. So it gets what a promise is rejected with when
    /// nobody handles that until the run ends; the run keeps its result.
    std::function<void(const JSValue& exception)> exceptionHandler = {};

    /// Processor time of a script, and of each later call of its functions; none for no limit. Waiting for
    /// a server does not count. The script ends with an exception that it cannot catch, and has no
    /// `WebAssembly`, which cannot be ended. Promise jobs are looked at less often than the script.
    std::optional<std::chrono::milliseconds> timeLimit = {};
    /// Bytes that the engine may hold, looked at after its collections, so that a single large value may go
    /// beyond it; 0 for no limit. The script ends as above.
    qint64 memoryLimit = qint64(512) << 20;
    /// Bytes of a response's body, unpacked; a longer one fails the request.
    qint64 responseLimit = qint64(64) << 20;

    /// The value of the script's last expression. None where the engine could not be made, and where the
    /// script throws: that goes to the error log and to the `exceptionHandler` of this moment. Globals are
    /// set in the order parameters, `utils`, helpers; a later one replaces an earlier one of that name.
    [[nodiscard]] std::optional<JSValue> execute(const QString& script,
        const ScriptValue::Map& parameters = {}, const ScriptValue::Map& helpers = {}) const;
};

} // namespace quor::toolkit
