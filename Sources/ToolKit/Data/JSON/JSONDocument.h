// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/DecodingError.h"
#include "ToolKit/Data/JSON/JSONValue.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// A parsed JSON text (RFC 8259, UTF-8, any value at the top), as one flat list of tokens: hostile
/// input costs memory in proportion to its length (about 16 bytes a token) and no stack.
///
/// Refused besides what is no JSON: nesting deeper than `maximumJSONDepth`, a number beyond the
/// doubles, text that is no Unicode, and texts of 4 GiB and more. Values borrow from the document, and
/// do so still after it was moved. Data that nobody else holds is parsed where it lies.
class JSONDocument final {
public:
    [[nodiscard]] static std::optional<JSONDocument> parse(QByteArray data, DecodingError& error);

    [[nodiscard]] JSONValue root() const { return {nodes_.data(), 0}; }

private:
    explicit JSONDocument(QByteArray text)
        : text_(std::move(text))
    {
    }

    QByteArray text_; ///< unescaped in place; what texts point into
    std::vector<JSONNode> nodes_;
};

} // namespace quor::toolkit
