// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/DisplayLinkScheduler.h"

#include "Platform/Concurrency/DisplayLink.h"
#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QGuiApplication>
#include <QWidget>

#include <utility>

namespace quor::toolkit {

DisplayLinkScheduler::DisplayLinkScheduler(std::shared_ptr<QWidget> window)
    : window_(std::move(window))
{
}

DisplayLinkScheduler::~DisplayLinkScheduler() = default;

void DisplayLinkScheduler::setRunning(bool on)
{
    if (on && !displayLink_)
        start();
    else if (!on)
        displayLink_.reset();
}

void DisplayLinkScheduler::start()
{
    const auto* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    displayLink_ = std::make_unique<platform::DisplayLink>(*screen);
    // The link calls back on a thread of its own, which only hands the closure on.
    displayLink_->setOutputCallback([update = platform::whileAlive(*this, [this] { updateHandler(); })] {
        platform::MainQueue::async(update);
    });
    displayLink_->start();
    if (!displayLink_->isRunning())
        displayLink_.reset();
}

} // namespace quor::toolkit
