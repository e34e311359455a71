// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The operations of `utils` on texts alone; see `JavaScriptUtilsProtocol`. Any thread.
namespace quor::toolkit::texts {

[[nodiscard]] QString base64Encode(const QString& text);
[[nodiscard]] QString base64Decode(const QString& text);
[[nodiscard]] QString markdownToHTML(const QString& text);

} // namespace quor::toolkit::texts
