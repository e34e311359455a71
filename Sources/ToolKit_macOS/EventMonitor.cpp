// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/EventMonitor.h"

#include <utility>

namespace quor::toolkit {

EventMonitor::EventMonitor(platform::EventMonitors& monitors, platform::EventMask mask)
    : monitors_(monitors)
    , mask_(mask)
{
}

EventMonitor::~EventMonitor()
{
    stop();
}

void EventMonitor::startGlobal(platform::EventMonitors::GlobalHandler handler)
{
    monitor_ = monitors_.addGlobalMonitor(mask_, std::move(handler));
}

void EventMonitor::startLocal(platform::EventMonitors::LocalHandler handler)
{
    monitor_ = monitors_.addLocalMonitor(mask_, std::move(handler));
}

void EventMonitor::stop()
{
    if (const auto monitor = std::exchange(monitor_, std::nullopt))
        monitors_.removeMonitor(*monitor);
}

} // namespace quor::toolkit
