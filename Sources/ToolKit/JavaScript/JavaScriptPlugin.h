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

/// A plug-in: a folder and its translated texts. Each script runs in a new engine. Its globals are the
/// parameters, `utils`, the helpers, and the standard objects of the language. Documentation/plugins.md
/// describes the API for scripts.
///
/// Any number of threads can run the same plug-in. Each of them needs a stack of at least 1 MiB.
struct JavaScriptPlugin {
    /// The folder whose files the scripts can read and write. With a URL that is not the URL of a local
    /// folder, scripts find no files and write none.
    QUrl baseURL;
    QHash<QString, QString> localization; ///< translated texts by key
    /// Called with each exception that a script does not catch, on the thread that runs the script, after the
    /// exception was written to the error log. That includes exceptions of later calls of the script's
    /// functions (`JSValue::call`). Also called with the reason of each rejected promise that no handler has
    /// handled when the run ends; that does not change the result. If several threads run the plug-in, the
    /// handler can be called on all of them at once.
    std::function<void(const JSValue& exception)> exceptionHandler = {};

    /// The limit of processor time for one run of a script, and for each later call of one of its functions.
    /// `nullopt` means no limit. Waiting for a server does not count. A script that reaches the limit is
    /// stopped by an exception that it cannot catch. While promise jobs run, the time is checked less often.
    /// With a limit, scripts have no `WebAssembly`, because WebAssembly code cannot be stopped.
    std::optional<std::chrono::milliseconds> timeLimit = {};
    /// The limit of the engine's memory in bytes. 0 means no limit. It is checked after each garbage
    /// collection, so a single large value can exceed it. A script that exceeds it is stopped by an exception
    /// that it cannot catch.
    qint64 memoryLimit = qint64(512) << 20;
    /// The maximum size of a response's body in bytes, after decompression. A request with a longer body
    /// fails: the script gets a response with an empty body. 0 allows only empty bodies.
    qint64 responseLimit = qint64(64) << 20;

    /// Runs the script on the calling thread and returns the value of its last expression. Blocks the thread,
    /// also while the script waits for a server, at most 60 seconds for each request.
    ///
    /// Returns `nullopt` if the script throws; the exception then goes to the error log and to the
    /// `exceptionHandler`. Also returns `nullopt` if there is not enough memory for an engine, without a call
    /// of the handler. The engine keeps the fields' values of this moment: later changes of this object do
    /// not affect it.
    ///
    /// Globals are set in the order parameters, `utils`, helpers. A later one replaces an earlier one of the
    /// same name.
    [[nodiscard]] std::optional<JSValue> execute(const QString& script,
        const ScriptValue::Map& parameters = {}, const ScriptValue::Map& helpers = {}) const;
};

} // namespace quor::toolkit
