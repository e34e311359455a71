// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/EncodingError.h"

#include <QByteArray>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace quor::toolkit {

/// Writes one JSON text, compact and in UTF-8, value by value. What a type's `JSONCoding` is handed to
/// encode itself with.
///
/// The caller pairs begin and end, and writes a key before each member. The first failure stands and
/// leaves no text. Text that is no Unicode (half of a surrogate pair) is written as U+FFFD.
class JSONWriter final {
public:
    JSONWriter();
    ~JSONWriter();
    JSONWriter(const JSONWriter&) = delete;
    JSONWriter& operator=(const JSONWriter&) = delete;

    /// False after a failure, as nesting beyond `maximumJSONDepth` is one; then neither members nor an
    /// end may follow.
    [[nodiscard]] bool beginObject();
    void endObject();
    [[nodiscard]] bool beginArray();
    void endArray();

    void key(std::string_view name); ///< UTF-8
    void key(QStringView name) { text(name); }

    void null();
    void boolean(bool value);
    void number(double value); ///< fails unless finite; integral ones are written without a fraction
    void number(std::int64_t value);
    void number(std::uint64_t value);
    void text(QStringView value);

    void fail(const QString& description); ///< stands for a value
    [[nodiscard]] bool hasFailed() const { return error_.has_value(); }

    /// The text; none after a failure, which is then in `error`. Ends the writer's use.
    [[nodiscard]] std::optional<QByteArray> take(EncodingError& error);

private:
    [[nodiscard]] bool begin();

    struct Output;
    std::unique_ptr<Output> output_;
    int depth_ = 0;
    std::optional<EncodingError> error_;
};

} // namespace quor::toolkit
