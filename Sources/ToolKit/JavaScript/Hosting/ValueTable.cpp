// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/ValueTable.h"

#include "ToolKit/JavaScript/ValueReference.h"

namespace quor::toolkit {

ScriptValue ValueTable::add(const JSValue& value)
{
    values_.emplace(++lastNumber_, value);
    return ScriptValue::List{
        static_cast<double>(lastNumber_), static_cast<int>(value.reference().kind()), value.toBool()};
}

std::optional<JSValue> ValueTable::value(std::optional<quint32> number) const
{
    const auto found = values_.find(number.value_or(0));
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace quor::toolkit
