// SPDX-License-Identifier: MIT
#include "Platform/Preferences/DataHome.h"

#include <QFile>

namespace quor::platform {

namespace {

/// None where the variable is unset or, against its rules, no absolute path.
std::optional<QString> absolutePath(const char* variable)
{
    const QString path = QFile::decodeName(qgetenv(variable));
    if (!path.startsWith(u'/'))
        return std::nullopt;
    return path;
}

} // namespace

std::optional<QString> dataHome()
{
    if (auto path = absolutePath("XDG_DATA_HOME"))
        return path;
    if (const auto home = absolutePath("HOME"))
        return *home + QStringLiteral("/.local/share");
    return std::nullopt;
}

} // namespace quor::platform
