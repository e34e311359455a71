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

/// A value as it passes between the application and a script: what a script's parameters and helpers are
/// made of, and what a script's values are converted to. Owns all it holds and knows no engine. Any thread.
///
/// A function among the helpers is called on the script's thread with the arguments converted, and what it
/// returns is converted back; what it throws is caught, and the script gets undefined.
struct ScriptValue {
    using List = std::vector<ScriptValue>;
    using Map = std::map<QString, ScriptValue>;
    using Function = std::function<ScriptValue(const List& arguments)>;

    /// As many a conversion makes at most.
    static constexpr int maximumCount = 1'000'000;

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
    ScriptValue(const char* text) = delete; // would pass for a boolean
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

    /// The value within, if it is of that kind.
    template <typename T>
    [[nodiscard]] const T* as() const
    {
        return std::get_if<T>(&value);
    }

    std::variant<std::monostate, std::nullptr_t, bool, double, QString, List, Map, Function> value;
};

/// As plain text: a text is itself, a list or map is JSON, with null for a number that is not finite, the
/// rest is what a script calls it.
[[nodiscard]] QString plainText(const ScriptValue& value);

/// As JSON in UTF-8, members in the order of their names. Undefined and functions are left out of maps and
/// null in lists. None where a number is not finite, or lists and maps nest deeper than `maximumJSONDepth`.
[[nodiscard]] std::optional<QByteArray> jsonText(const ScriptValue& value);

} // namespace quor::toolkit
