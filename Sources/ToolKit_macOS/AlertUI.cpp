// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/AlertUI.h"

#include "Platform/Concurrency/MainQueue.h"

#include <memory>
#include <utility>

namespace quor::toolkit {

void AlertUI::show(const QString& message, const QString& iconName, const QString& informativeText,
    const QString& buttonTitle, const std::optional<QString>& cancelTitle, WarningAlert::Handler handler,
    const std::optional<platform::Bundle>& images, platform::WindowServer* windowServer)
{
    const AlertContent content{.message = message,
        .iconName = iconName,
        .informativeText = informativeText,
        .buttonTitle = buttonTitle,
        .cancelTitle = cancelTitle,
        .images = images,
        .windowServer = windowServer};
    platform::MainQueue::async([content, handler = std::move(handler)] {
        const auto alert = std::make_shared<WarningAlert>();
        // The handler keeps the alert until it ends.
        alert->show(content, [alert, handler](bool isFirst, int tag) { handler(isFirst, tag); });
    });
}

} // namespace quor::toolkit
