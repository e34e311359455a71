// SPDX-License-Identifier: MIT
#include "Platform/Linux/DesktopPlatform.h"

#include <QtGlobal>

#include <algorithm>
#include <string_view>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace quor::platform {

namespace {

// Qt aborts the process if the display cannot be opened.
bool defaultDisplayOpens()
{
    auto* connection = xcb_connect(nullptr, nullptr);
    const bool opens = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return opens;
}

} // namespace

std::optional<QString> chooseDesktopPlatform(int argc, const char* const* argv)
{
    const auto choosesPlatform
        = [](std::string_view argument) { return argument == "-platform"sv || argument == "--platform"sv; };
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")
        || std::any_of(argv + std::min(argc, 1), argv + argc, choosesPlatform))
        return std::nullopt;
    const QString display = qEnvironmentVariable("DISPLAY");
    if (!display.isEmpty() && defaultDisplayOpens()) {
        qputenv("QT_QPA_PLATFORM", "xcb");
        return std::nullopt;
    }
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return std::nullopt;
    return display.isEmpty() ? u"there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set"_s
                             : u"the X display %1 (from DISPLAY) cannot be opened"_s.arg(display);
}

} // namespace quor::platform
