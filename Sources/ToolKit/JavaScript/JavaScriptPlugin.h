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

    // With a limit of time or memory, the script runs in a process of its own: the program
    // `quor-plugin-host`, which is installed with the kit. Starting it takes some 20 to 50 milliseconds. A
    // script that reaches a limit is ended with its process; an error with the reason goes to the error log
    // and to the `exceptionHandler`. So does an error if the program is missing; the script does not run
    // then. Without any limit the script runs in this process, and nothing can end it: set a limit for
    // scripts that are not trusted.

    /// The limit of processor time for one run of a script, and for each later call or reading of its values.
    /// It includes the time that its process takes for `utils` and helpers, but not the waiting for a server.
    /// Time in which a script sleeps counts as well. `nullopt` means no limit.
    std::optional<std::chrono::milliseconds> timeLimit = {};
    /// The limit of the memory of the script's process in bytes, beyond what it needs for an empty engine. It
    /// is checked some hundred times a second, so it can be exceeded for a moment. 0 means no limit.
    /// `nullopt` means `defaultMemoryLimit` if there is a `timeLimit`, otherwise no limit.
    std::optional<qint64> memoryLimit = {};
    static constexpr qint64 defaultMemoryLimit = qint64(512) << 20;

    /// The maximum size of a response's body in bytes, after decompression. A request with a longer body
    /// fails: the script gets a response with an empty body. 0 allows only empty bodies.
    qint64 responseLimit = qint64(64) << 20;

    /// Runs the script on the calling thread and returns the value of its last expression. Blocks the thread,
    /// also while the script waits for a server, at most 60 seconds for each request.
    ///
    /// Returns `nullopt` if the script throws or exceeds a limit; the exception then goes to the error log
    /// and to the `exceptionHandler`. Also returns `nullopt` if there is not enough memory for an engine,
    /// without a call of the handler. The engine keeps the fields' values of this moment: later changes of
    /// this object do not affect it.
    ///
    /// Globals are set in the order parameters, `utils`, helpers. A later one replaces an earlier one of the
    /// same name.
    [[nodiscard]] std::optional<JSValue> execute(const QString& script,
        const ScriptValue::Map& parameters = {}, const ScriptValue::Map& helpers = {}) const;
};

} // namespace quor::toolkit
