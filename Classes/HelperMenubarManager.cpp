// SPDX-License-Identifier: MIT
#include "HelperMenubarManager.h"

#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Preferences/DataHome.h"
#include "Platform/Services/Application.h"
#include "Platform/Services/StatusBar.h"
#include "Platform/Services/Workspace.h"
#include "ToolKit/Logging/FileErrorLogger.h"
#include "View/Menu/MenubarMenuRenderer.h"
#include "View/StatusItem/MenubarStatusItemRenderer.h"

#include <QFile>

#include <utility>

namespace quor::helper {

using Action = GroupStorage::Action;

HelperMenubarManager::HelperMenubarManager(const platform::PlatformServices& services)
    : services_(services)
    , interAppCommBridge_(services.notificationCenter)
{
    notificationObserver_ = interAppCommBridge_.registerForNotification(InterAppNotification::updatedHelper,
        platform::whileAlive(*this, [this](const platform::Notification&) { handleUpdate(); }));
    setUpLogging();
    interAppCommBridge_.groupStorage.setAction({Action::None{}});
    interAppCommBridge_.postNotification(InterAppNotification::updatedMain);
    showStatusItem(true);
}

HelperMenubarManager::~HelperMenubarManager()
{
    removeObserver();
}

void HelperMenubarManager::setUpLogging() const
{
    const bool enableLogging = interAppCommBridge_.groupStorage.enableLogging();
    const auto dataHome = platform::dataHome();
    if (!dataHome)
        return;
    toolkit::FileErrorLogger::setup(QFile::decodeName(*dataHome) + u'/'
        + interAppCommBridge_.helperItemBundleID + QStringLiteral("/logs"));
    toolkit::FileErrorLogger::setEnabled(enableLogging); // false also empties the folder
}

void HelperMenubarManager::removeObserver()
{
    if (const auto observer = std::exchange(notificationObserver_, std::nullopt))
        services_.notificationCenter.removeObserver(*observer);
}

void HelperMenubarManager::showStatusItem(bool show)
{
    if (show == (statusItem_ != nullptr))
        return;
    if (show) {
        statusItem_ = services_.statusBar.statusItem(platform::StatusItem::variableLength);
        menubarMenuRenderer_ = std::make_unique<MenubarMenuRenderer>(*statusItem_, services_);
        connectMenu();
        statusItemRenderer_ = std::make_unique<MenubarStatusItemRenderer>(*statusItem_, services_);
    } else {
        closeMenu();
        menubarMenuRenderer_.reset();
        statusItemRenderer_.reset();
        services_.statusBar.removeStatusItem(std::move(statusItem_));
    }
}

void HelperMenubarManager::handleUpdate()
{
    const auto& storage = interAppCommBridge_.groupStorage;
    const Action action = storage.action();
    if (std::holds_alternative<Action::OpenMenu>(action.value)) {
        storage.setAction({Action::None{}});
        if (menubarMenuRenderer_)
            menubarMenuRenderer_->toggle();
    } else if (std::holds_alternative<Action::RequestMenuEntries>(action.value)) {
        storage.setAction({Action::None{}});
        if (menubarMenuRenderer_)
            menubarMenuRenderer_->showEntries(storage.menuEntryData());
    }
    refresh();
}

void HelperMenubarManager::refresh()
{
    if (!statusItemRenderer_)
        return;
    const auto& storage = interAppCommBridge_.groupStorage;
    const bool showWorkingDays = storage.showWorkingDays();
    const double workingDayLengthSeconds = storage.workingDayLengthSeconds();
    const bool showDurationInPercent = storage.showDurationInPercent();
    statusItemRenderer_->durationFormatter.configure(
        showWorkingDays, showDurationInPercent, workingDayLengthSeconds);
    statusItemRenderer_->data = storage.timerData();
    statusItemRenderer_->update();
}

void HelperMenubarManager::connectMenu()
{
    using platform::whileAlive;
    auto& menu = *menubarMenuRenderer_;
    menu.requestMenuEntries
        = whileAlive(*this, [this](const QString& searchTerm) { requestMenuEntries(searchTerm); });
    menu.stopTimer = whileAlive(*this, [this](const QString& taskID, double delta) {
        send({Action::StopTimer{taskID, delta}});
    });
    menu.adjustTimer = whileAlive(*this, [this](const QString& taskID, double delta) {
        send({Action::AdjustTimer{taskID, delta}});
    });
    menu.startTimer
        = whileAlive(*this, [this](const QString& taskID) { send({Action::StartTimer{taskID}}); });
    menu.openQuorHandler = whileAlive(*this, [this] {
        closeMenu();
        send({Action::OpenQuor{}});
    });
    menu.quitQuorHandler = whileAlive(*this, [this] {
        closeMenu();
        send({Action::QuitQuor{}});
    });
}

void HelperMenubarManager::closeMenu()
{
    if (!menubarMenuRenderer_)
        return;
    menubarMenuRenderer_->forgetPreviousActiveApp();
    menubarMenuRenderer_->closeWindow();
}

void HelperMenubarManager::send(const Action& action) const
{
    interAppCommBridge_.groupStorage.setAction(action);
    interAppCommBridge_.postNotification(InterAppNotification::updatedMain);
}

void HelperMenubarManager::requestMenuEntries(const QString& searchTerm)
{
    interAppCommBridge_.groupStorage.setSearchTerm(searchTerm);
    send({Action::RequestMenuEntries{}});
    // A bus that does not answer in time says nothing about the main application.
    const auto isRunning
        = platform::isApplicationRunning(services_.workspace, interAppCommBridge_.mainAppBundleID);
    if (isRunning == false)
        services_.application.terminate();
}

} // namespace quor::helper
