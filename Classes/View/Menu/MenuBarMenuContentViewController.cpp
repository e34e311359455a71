// SPDX-License-Identifier: MIT
#include "View/Menu/MenuBarMenuContentViewController.h"

#include "Platform/Lifetime/WhileAlive.h"
#include "View/Menu/MenuEffectView.h"
#include "View/Menu/MenuWindow.h"
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

namespace quor::helper {

namespace {

constexpr double minWidth = 300;

} // namespace

MenuBarMenuContentViewController::MenuBarMenuContentViewController(
    MenuWindow& window, platform::WindowServer& windowServer, const platform::Clock& clock)
    : QObject(&window)
    , window_(window)
{
    auto* view = new MenuEffectView(windowServer);
    customMenu_ = new MenuBarCustomMenu(true, minWidth, clock, view);
    customMenu_->resizedHandler
        = platform::whileAlive(*this, [this] { window_.setContentSize(customMenu_->size()); });
    window.setContentView(view);
    connect(&window, &MenuWindow::willDisappear, this, &MenuBarMenuContentViewController::viewWillDisappear);
    connect(&window, &MenuWindow::cancelled, this, &MenuBarMenuContentViewController::cancelOperation);
}

void MenuBarMenuContentViewController::viewWillDisappear()
{
    customMenu_->cleanup();
}

void MenuBarMenuContentViewController::cancelOperation()
{
    window_.close();
}

} // namespace quor::helper
