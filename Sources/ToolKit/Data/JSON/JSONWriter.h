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

/// Writes one JSON text, compact and in UTF-8, value by value. Used by each type's `JSONCoding`.
///
/// The caller pairs begin and end, and writes a key before each member. After the first failure there is no
/// text. Half of a surrogate pair is written as U+FFFD.
class JSONWriter final {
public:
    JSONWriter();
    ~JSONWriter();
    JSONWriter(const JSONWriter&) = delete;
    JSONWriter& operator=(const JSONWriter&) = delete;

    /// Begins an object or array. Returns false after a failure (nesting beyond `maximumJSONDepth` is one);
    /// the caller must then write neither members nor the end.
    [[nodiscard]] bool beginObject();
    void endObject();
    [[nodiscard]] bool beginArray();
    void endArray();

    void key(std::string_view name); ///< In UTF-8.
    void key(QStringView name) { text(name); }

    void null();
    void boolean(bool value);
    void number(double value); ///< Fails unless it is finite. Integral ones are written without a fraction.
    void number(std::int64_t value);
    void number(std::uint64_t value);
    void text(QStringView value);

    /// To be called in place of writing a value. Only the first failure is kept.
    void fail(const QString& description);
    [[nodiscard]] bool hasFailed() const { return error_.has_value(); }

    /// Returns the text, or sets `error` and returns `nullopt` after a failure. To be called last.
    [[nodiscard]] std::optional<QByteArray> take(EncodingError& error);

private:
    [[nodiscard]] bool begin();

    struct Output;
    std::unique_ptr<Output> output_;
    int depth_ = 0;
    std::optional<EncodingError> error_;
};

} // namespace quor::toolkit
