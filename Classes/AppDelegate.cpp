// SPDX-License-Identifier: MIT
#include "AppDelegate.h"

#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Services/Application.h"
#include "ToolKit/Logging/Logger.h"
#include "View/Menu/MenubarMenuRenderer.h"

#include <utility>

namespace quor::helper {

AppDelegate::AppDelegate(const platform::PlatformServices& services)
    : services_(services)
    , interAppCommBridge_(services.notificationCenter)
    , helperMenubarManager_(services)
{
}

AppDelegate::~AppDelegate()
{
    removeObserver();
}

void AppDelegate::applicationDidFinishLaunching()
{
    notificationObserver_ = interAppCommBridge_.registerForNotification(InterAppNotification::helperKill,
        platform::whileAlive(*this, [this](const platform::Notification&) { killMyself(); }));
}

void AppDelegate::openQuorClicked()
{
    const auto* menu = helperMenubarManager_.menubarMenuRenderer();
    if (menu)
        menu->openQuorHandler();
}

void AppDelegate::quitQuorClicked()
{
    const auto* menu = helperMenubarManager_.menubarMenuRenderer();
    if (menu)
        menu->quitQuorHandler();
}

void AppDelegate::killMyself()
{
    toolkit::Logger::log(u"killMyself", true);
    helperMenubarManager_.removeObserver();
    removeObserver();
    services_.application.terminate();
}

void AppDelegate::removeObserver()
{
    if (const auto observer = std::exchange(notificationObserver_, std::nullopt))
        services_.notificationCenter.removeObserver(*observer);
}

} // namespace quor::helper
