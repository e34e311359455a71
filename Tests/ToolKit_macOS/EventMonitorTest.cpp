// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/EventMonitor.h"
#include "Support/TestEventMonitors.h"

#include <gmock/gmock.h>

#include <memory>

using namespace quor::toolkit;
using quor::platform::EventType;
using quor::platform::InputEvent;
using quor::test::TestEventMonitors;

TEST(EventMonitorTest, MonitorsItsTypesFromStartToStopOrEnd)
{
    TestEventMonitors desktop;
    int seen = 0;
    const auto count = [&](const InputEvent&) { ++seen; };
    auto monitor = std::make_unique<EventMonitor>(desktop, 10);
    monitor->startGlobal(count);
    for (const auto type : {EventType::leftMouseDown, EventType::leftMouseUp, EventType::rightMouseDown})
        desktop.fireGlobal({type, {}, {}, nullptr});
    EXPECT_EQ(seen, 2);
    monitor->stop();
    desktop.fireGlobal({});
    EXPECT_EQ(seen, 2);

    // The monitor that is started first stays installed for good.
    monitor->startLocal([](const InputEvent& event) { return event; });
    monitor->startLocal([&](const InputEvent&) {
        monitor.reset();
        return std::nullopt;
    });
    EXPECT_FALSE(desktop.fireLocal({})) << "the second handler swallows it";
    EXPECT_EQ(desktop.local.size(), 1U);
}
