// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/AlertUI.h"

#include "Platform/Concurrency/MainQueue.h"

#include <memory>
#include <utility>

namespace quor::toolkit {

void AlertUI::show(const QString& message, const QString& iconName, const QString& informativeText,
    const QString& buttonTitle, const std::optional<QString>& cancelTitle, WarningAlert::Handler handler,
    const std::optional<platform::Bundle>& images)
{
    AlertContent content;
    content.message = message;
    content.iconName = iconName;
    content.informativeText = informativeText;
    content.buttonTitle = buttonTitle;
    content.cancelTitle = cancelTitle;
    content.images = images;
    platform::MainQueue::async([content = std::move(content), handler = std::move(handler)] {
        const auto alert = std::make_shared<WarningAlert>();
        // Until the alert ends, its handler is what keeps it.
        alert->show(content, [alert, handler](bool first, int tag) {
            if (handler)
                handler(first, tag);
        });
    });
}

} // namespace quor::toolkit
