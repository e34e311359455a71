// SPDX-License-Identifier: MIT
#include "Platform/Preferences/DataHome.h"

namespace quor::platform {

namespace {

/// None where the variable is unset or, against its rules, no absolute path.
std::optional<QByteArray> absolutePath(const char* variable)
{
    const QByteArray path = qgetenv(variable);
    if (!path.startsWith('/'))
        return std::nullopt;
    return path;
}

} // namespace

std::optional<QByteArray> dataHome()
{
    if (auto path = absolutePath("XDG_DATA_HOME"))
        return path;
    if (const auto home = absolutePath("HOME"))
        return *home + "/.local/share";
    return std::nullopt;
}

} // namespace quor::platform
