// SPDX-License-Identifier: MIT
#include "View/MenubarMenuRenderer.h"

#include "Platform/Services/StatusItem.h"
#include "Platform/Views/StatusBarButton.h"

namespace quor::helper {

MenubarMenuRenderer::MenubarMenuRenderer(platform::StatusItem& statusItem)
    : statusItem_(statusItem)
{
    connect(&statusItem_.button(), &platform::StatusBarButton::mouseDown, this, &MenubarMenuRenderer::toggle);
}

void MenubarMenuRenderer::toggle()
{
    auto& button = statusItem_.button();
    eventFrame_ = QRectF(button.mapToGlobal(QPointF()), button.size());
    button.highlight(true);
    if (requestMenuEntries)
        requestMenuEntries({});
}

void MenubarMenuRenderer::showEntries(const std::vector<MenuEntry>&)
{
    close();
}

void MenubarMenuRenderer::close()
{
    statusItem_.button().highlight(false);
}

} // namespace quor::helper
