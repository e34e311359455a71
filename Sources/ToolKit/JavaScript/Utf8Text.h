// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONValue.h"

#include <QByteArray>
#include <QUtf8StringView>

#include <optional>

namespace quor::toolkit {

/// Decodes UTF-8 and keeps a byte order mark. Returns `nullopt` if the bytes are not valid UTF-8.
[[nodiscard]] inline std::optional<QString> utf8Text(const QByteArray& bytes)
{
    if (!QUtf8StringView(bytes).isValidUtf8())
        return std::nullopt;
    return textFromUtf8({bytes.constData(), static_cast<size_t>(bytes.size())});
}

} // namespace quor::toolkit
