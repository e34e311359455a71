// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONRecordCoding.h"

#include <QByteArray>

#include <optional>

namespace quor::toolkit {

/// Encodes a value of any type that has a `JSONCoding` as JSON text in UTF-8. Fails for numbers that are not
/// finite and for nesting deeper than `maximumJSONDepth`. The order of members is unspecified. Any thread.
class JSONEncoder final {
public:
    enum class OutputFormatting {
        compact,
        prettyPrinted, ///< One line for each member and element, indented by four blanks for each level.
    };

    OutputFormatting outputFormatting = OutputFormatting::compact;

    /// Returns `nullopt` on failure, and sets `error` if it is not null. Leaves `error` as it is otherwise.
    template <typename T>
    [[nodiscard]] std::optional<QByteArray> encode(const T& object, EncodingError* error = nullptr) const
    {
        JSONWriter writer;
        JSONCoding<T>::encode(object, writer);
        EncodingError local;
        auto text = writer.take(error ? *error : local);
        if (text && outputFormatting == OutputFormatting::prettyPrinted)
            return prettyPrinted(*text);
        return text;
    }

private:
    [[nodiscard]] static QByteArray prettyPrinted(const QByteArray& json);
};

} // namespace quor::toolkit
