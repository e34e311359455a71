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

/// A plug-in: a folder, translated texts and limits. It runs scripts, each in a new engine. The globals of a
/// script are its parameters, `utils`, the helpers, and what the language defines; Documentation/plugins.md
/// describes them for authors of scripts.
///
/// A plain value. `execute` runs the script on the calling thread and blocks it, also while the script waits
/// for a server, at most 60 seconds for each request. Any number of threads can run the same plug-in. Their
/// stacks need a megabyte or more.
struct JavaScriptPlugin {
    QUrl baseURL; ///< the local folder whose files the scripts can read and write
    QHash<QString, QString> localization; ///< translated texts by key
    /// Called with each exception that the script does not catch, on the thread of the script, after the
    /// exception was written to the error log. Also called with the reason of each promise that is rejected
    /// and not handled when the run ends; such a run still has its result.
    std::function<void(const JSValue& exception)> exceptionHandler = {};

    /// Limit of processor time for the script, and for each later call of one of its functions; `nullopt` for
    /// no limit. Waiting for a server does not count. A script that exceeds it ends with an exception that it
    /// cannot catch. With a limit there is no `WebAssembly`, because that cannot be ended. Promise jobs are
    /// checked less often than other code.
    std::optional<std::chrono::milliseconds> timeLimit = {};
    /// Limit of the engine's memory in bytes; 0 for no limit. It is checked after garbage collections, so a
    /// single large value can exceed it. A script that exceeds it ends with an exception that it cannot
    /// catch.
    qint64 memoryLimit = qint64(512) << 20;
    /// Limit of the body of a response in bytes, after decompression. A longer body makes the request fail.
    qint64 responseLimit = qint64(64) << 20;

    /// Runs the script and returns the value of its last expression. Returns `nullopt` if the script throws
    /// or there is not enough memory for an engine. Globals are set in the order parameters, `utils`,
    /// helpers; a later one replaces an earlier one of the same name. A change of this object does not affect
    /// a running script.
    [[nodiscard]] std::optional<JSValue> execute(const QString& script,
        const ScriptValue::Map& parameters = {}, const ScriptValue::Map& helpers = {}) const;
};

} // namespace quor::toolkit
