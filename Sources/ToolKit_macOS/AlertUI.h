// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit_macOS/WarningAlert.h"

namespace quor::toolkit {

/// Shows an alert without an object that the caller has to keep.
struct AlertUI {
    /// Shows a sheet as soon as the main thread's event loop runs, on the window that `AlertContent::window`
    /// describes for null. `handler` is called on the main thread. If the window is deleted before a button
    /// is chosen, `handler` is destroyed without being called. It may be empty. See `AlertContent` for the
    /// other arguments. Any thread.
    static void show(const QString& message, const QString& iconName, const QString& informativeText,
        const QString& buttonTitle, const std::optional<QString>& cancelTitle, WarningAlert::Handler handler,
        const std::optional<platform::Bundle>& images = {}, platform::WindowServer* windowServer = nullptr);
};

} // namespace quor::toolkit
