// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace quor::peer {

/// The reports as lines of fields parted by tabs, for people and for `cut`; no line feed at the end.
/// Texts have their tabs, line feeds and backslashes escaped by a backslash.

[[nodiscard]] QString plainText(const QJsonArray& taskReport);
[[nodiscard]] QString plainText(const QJsonObject& statusReport);

} // namespace quor::peer
