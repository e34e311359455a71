// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace quor::peer {

/// The reports as lines of fields separated by tabs, without a line feed at the end. In names, tabs, line
/// feeds, carriage returns and backslashes are written as \t, \n, \r and \\.

[[nodiscard]] QString plainText(const QJsonArray& taskReport);
[[nodiscard]] QString plainText(const QJsonObject& statusReport);

} // namespace quor::peer
