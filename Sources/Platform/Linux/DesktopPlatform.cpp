// SPDX-License-Identifier: MIT
#include "Platform/Linux/DesktopPlatform.h"

#include <QtGlobal>

#include <algorithm>
#include <string_view>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace quor::platform {

std::optional<QString> chooseDesktopPlatform(int argc, const char* const* argv)
{
    const auto choosesPlatform
        = [](std::string_view argument) { return argument == "-platform"sv || argument == "--platform"sv; };
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")
        || std::any_of(argv + std::min(argc, 1), argv + argc, choosesPlatform))
        return std::nullopt;
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        qputenv("QT_QPA_PLATFORM", "xcb");
        return std::nullopt;
    }
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return std::nullopt;
    return u"there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set"_s;
}

} // namespace quor::platform
