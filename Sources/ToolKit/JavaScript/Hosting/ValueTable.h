// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Hosting/ScriptMessage.h"
#include "ToolKit/JavaScript/JSValue.h"

#include <map>

namespace quor::toolkit {

/// The values of a script that the application knows by their numbers.
class ValueTable final {
public:
    /// Adds the value and returns the reference to it that is sent to the application.
    [[nodiscard]] ScriptValue add(const JSValue& value);
    /// Returns `nullopt` if there is no value of this number.
    [[nodiscard]] std::optional<JSValue> value(std::optional<quint32> number) const;
    void remove(quint32 number) { values_.erase(number); }

private:
    std::map<quint32, JSValue> values_;
    quint32 lastNumber_ = 0;
};

} // namespace quor::toolkit
