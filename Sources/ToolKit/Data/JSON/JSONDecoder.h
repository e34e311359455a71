// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONDocument.h"
#include "ToolKit/Data/JSON/JSONRecordCoding.h"

#include <QByteArray>

#include <optional>
#include <utility>

namespace quor::toolkit {

/// Decodes JSON text into a value of any type that has a `JSONCoding`: a record, a list of records, Qt's own
/// JSON values. The text need not be trusted: no text leads to a crash or a deep stack. `JSONDocument` lists
/// what is refused. Stateless. Any thread.
///
/// A double is decoded from any number, an integer only from an integral number (3.0 is) in its range. Of
/// several members with the same name, the last is used.
class JSONDecoder final {
public:
    /// Returns `nullopt` on failure, and sets `error` if it is not null. After a success the content of
    /// `error` is unspecified.
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
