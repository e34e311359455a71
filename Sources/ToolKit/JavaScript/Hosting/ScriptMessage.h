// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/ScriptValue.h"

namespace quor::toolkit {

/// The version of the messages below. An application and the program of another kit must not talk.
inline constexpr const char* scriptProtocol = "1";

/// What a message asks for, with its values in parentheses. A reference is a list of the number, the kind and
/// the truth of a script's value; an optional value is a list with at most one element.
enum class ScriptOperation : quint8 {
    reply, ///< (value)
    release, ///< (numbers of references or functions that the sender has forgotten); has no reply

    // The application asks the script's process. Those about a value begin with its number.
    prepare, ///< (texts by key): true
    run, ///< (script, parameters, helpers): optional reference
    call, ///< (number, arguments): optional reference
    toDouble, ///< (number): number
    toString, ///< (number): optional text
    toDictionary, ///< (number): optional map
    toScriptValue, ///< (number, maximum count): optional value
    property, ///< (number, name): optional reference

    // The script's process asks the application.
    report, ///< (reference of an exception)
    helper, ///< (number of a function, arguments): value
    removeFile, ///< (path)
    fileExists, ///< (path): boolean
    writeToFile, ///< (path, contents)
    contentsOfFile, ///< (path): optional text
    log, ///< (reference)
    request, ///< (URL, method, headers, optional parameters): record
};

/// A message between an application and the process that runs its script. A plain value.
struct ScriptMessage {
    /// Messages that are longer are neither sent nor received.
    static constexpr qint64 maximumSize = qint64(1) << 30;
    /// Messages without functions that have more values are not read: values need much more memory than their
    /// bytes. A request has the most, in its headers and its parameters.
    static constexpr int maximumCount = 3 * ScriptValue::maximumCount;

    using NumberOfFunction = std::function<quint32(const ScriptValue::Function&)>;
    using FunctionOfNumber = std::function<ScriptValue::Function(quint32)>;

    ScriptOperation operation = ScriptOperation::reply;
    ScriptValue::List values = {};

    /// The bytes of the message. Functions in it become numbers.
    [[nodiscard]] QByteArray encoded(const NumberOfFunction& numberOf) const;
    /// Reads bytes, which need not be trusted. Returns `nullopt` if they are no message, and if they contain
    /// a function or more than `maximumCount` values but there is no `functionOf`.
    [[nodiscard]] static std::optional<ScriptMessage> decoded(
        const QByteArray& bytes, const FunctionOfNumber& functionOf);
};

// The parts of a message. Each returns an empty result if the value is missing or of another type.
[[nodiscard]] QString textAt(const ScriptValue::List& values, size_t index);
[[nodiscard]] ScriptValue::Map mapAt(const ScriptValue::List& values, size_t index);
[[nodiscard]] ScriptValue::List listAt(const ScriptValue::List& values, size_t index);
[[nodiscard]] std::optional<quint32> numberAt(const ScriptValue::List& values, size_t index);

template <typename T>
[[nodiscard]] ScriptValue optionalValue(std::optional<T> value)
{
    return value ? ScriptValue::List{ScriptValue(*std::move(value))} : ScriptValue::List();
}

} // namespace quor::toolkit
