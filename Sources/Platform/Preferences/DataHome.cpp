// SPDX-License-Identifier: MIT
#include "Platform/Preferences/DataHome.h"

namespace quor::platform {

namespace {

/// Returns `nullopt` if the variable is unset, or, against the rules for it, a relative path.
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
