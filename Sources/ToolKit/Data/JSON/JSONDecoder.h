// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONDocument.h"
#include "ToolKit/Data/JSON/JSONRecordCoding.h"

#include <QByteArray>

#include <optional>
#include <utility>

namespace quor::toolkit {

/// Reads a value of any type that has a `JSONCoding` from JSON text: a record, a list of them, Qt's own
/// JSON values. Bytes from anywhere may be handed in: what is refused is told under `JSONDocument`,
/// and nothing in a text leads to a crash or a deep stack. Stateless; any thread.
///
/// Numbers: a double takes any number, an integer only one that is integral and in its range (3.0
/// is). Of members with the same name the last one counts.
class JSONDecoder final {
public:
    /// None on failure, with the reason in `error` where that is given.
    template <typename T>
    [[nodiscard]] std::optional<T> decode(QByteArray data, DecodingError* error = nullptr) const
    {
        DecodingError local;
        DecodingError& reason = error ? *error : local;
        const auto document = JSONDocument::parse(std::move(data), reason);
        std::optional<T> result;
        if (document && !JSONCoding<T>::decode(document->root(), result.emplace(), reason))
            result.reset();
        return result;
    }
};

} // namespace quor::toolkit
