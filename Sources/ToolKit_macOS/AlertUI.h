// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit_macOS/WarningAlert.h"

namespace quor::toolkit {

/// Shows an alert from anywhere in a program, with no object to keep.
struct AlertUI {
    /// Shows a sheet on the active window when the main queue next turns; `handler` runs there.
    /// Any thread.
    static void show(const QString& message, const QString& iconName, const QString& informativeText,
        const QString& buttonTitle, const std::optional<QString>& cancelTitle, WarningAlert::Handler handler,
        const std::optional<platform::Bundle>& images = {});
};

} // namespace quor::toolkit
