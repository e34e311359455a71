// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit_macOS/WarningAlert.h"

namespace quor::toolkit {

/// Shows an alert without an object that the caller has to keep.
struct AlertUI {
    /// Shows a sheet on the active window as soon as the main thread's event loop runs. `handler` is called
    /// on the main thread. See `AlertContent` for the other arguments. Any thread.
    static void show(const QString& message, const QString& iconName, const QString& informativeText,
        const QString& buttonTitle, const std::optional<QString>& cancelTitle, WarningAlert::Handler handler,
        const std::optional<platform::Bundle>& images = {});
};

} // namespace quor::toolkit
