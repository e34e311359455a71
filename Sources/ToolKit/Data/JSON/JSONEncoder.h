// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONRecordCoding.h"

#include <QByteArray>

#include <optional>

namespace quor::toolkit {

/// Writes a value of any type that has a `JSONCoding` as JSON text in UTF-8. Numbers must be finite and
/// the nesting no deeper than `maximumJSONDepth`. The order of an object's members is free. Any thread.
class JSONEncoder final {
public:
    enum class OutputFormatting {
        compact,
        prettyPrinted, ///< a line for each member and element, indented by four blanks a level
    };

    OutputFormatting outputFormatting = OutputFormatting::compact;

    /// None on failure, with the reason in `error` where that is given.
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
