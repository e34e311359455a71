// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/DecodingError.h"
#include "ToolKit/Data/JSON/JSONValue.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// A parsed JSON text (RFC 8259, UTF-8, any value at the top) as one flat list of tokens. Parsing needs
/// memory in proportion to the length of the text (16 bytes for each token) and no stack, even for hostile
/// texts.
///
/// Refuses, besides invalid JSON, nesting deeper than `maximumJSONDepth`, numbers beyond the range of a
/// double, invalid Unicode, and texts of 4 GiB and more. Values borrow from the document, and stay valid when
/// it is moved.
class JSONDocument final {
public:
    /// Returns `nullopt` for a text that is refused, and sets `error`. `data` is copied if it is shared.
    [[nodiscard]] static std::optional<JSONDocument> parse(QByteArray data, DecodingError& error);

    [[nodiscard]] JSONValue root() const { return {nodes_.data(), 0}; }

private:
    explicit JSONDocument(QByteArray text)
        : text_(std::move(text))
    {
    }

    QByteArray text_; ///< Unescaped in place. The tokens of texts point into it.
    std::vector<JSONNode> nodes_;
};

} // namespace quor::toolkit
