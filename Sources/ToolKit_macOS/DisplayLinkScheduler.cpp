// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/DisplayLinkScheduler.h"

#include "Platform/Concurrency/DisplayLink.h"
#include "Platform/Concurrency/MainQueue.h"

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
    displayLink_->setOutputCallback([scheduler = platform::TrackedPointer<const DisplayLinkScheduler>(this)] {
        platform::MainQueue::async([scheduler] {
            if (const auto* still = scheduler.get())
                still->update();
        });
    });
    displayLink_->start();
}

void DisplayLinkScheduler::update() const
{
    if (const auto handler = updateHandler) // which stays, whatever it does to this object
        handler();
}

} // namespace quor::toolkit
