// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <optional>
#include <variant>
#include <vector>

namespace quor::toolkit {

/// A value that the application and a script exchange: a parameter, a helper, or the copy of a script's
/// value. A plain value without an engine. Any thread.
///
/// A function is called on the thread of the script. Its arguments and its result are converted. If it
/// throws, the script gets undefined.
struct ScriptValue {
    using List = std::vector<ScriptValue>;
    using Map = std::map<QString, ScriptValue>;
    using Function = std::function<ScriptValue(const List& arguments)>;

    /// The maximum number of values in a conversion.
    static constexpr int maximumCount = 1'000'000;
    /// The maximum length of all texts and names in a conversion of a script's value, in UTF-16 code units.
    static constexpr qsizetype maximumTextLength = qsizetype(64) << 20;

    ScriptValue() = default; ///< undefined
    ScriptValue(std::nullptr_t null)
        : value(null)
    {
    }
    ScriptValue(bool boolean)
        : value(boolean)
    {
    }
    ScriptValue(double number)
        : value(number)
    {
    }
    ScriptValue(int number)
        : value(double(number))
    {
    }
    ScriptValue(QString text)
        : value(std::move(text))
    {
    }
    ScriptValue(const char* text) = delete; // would be converted to a boolean
    ScriptValue(List list)
        : value(std::move(list))
    {
    }
    ScriptValue(Map map)
        : value(std::move(map))
    {
    }
    ScriptValue(Function function)
        : value(std::move(function))
    {
    }

    /// The value if it is of type `T`, else null.
    template <typename T>
    [[nodiscard]] const T* as() const
    {
        return std::get_if<T>(&value);
    }

    std::variant<std::monostate, std::nullptr_t, bool, double, QString, List, Map, Function> value;
};

/// The value as plain text. Texts are unchanged, lists and maps become JSON, with null for numbers that are
/// not finite, other values become the texts that a script makes of them.
[[nodiscard]] QString plainText(const ScriptValue& value);

/// The value as JSON in UTF-8, with members in the order of their names. Undefined values and functions are
/// left out of maps and become null in lists. Returns `nullopt` if a number is not finite, or if lists and
/// maps are nested deeper than `maximumJSONDepth`.
[[nodiscard]] std::optional<QByteArray> jsonText(const ScriptValue& value);

} // namespace quor::toolkit
