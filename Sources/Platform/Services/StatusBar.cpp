// SPDX-License-Identifier: MIT
#include "Platform/Services/StatusBar.h"

#include "Platform/Services/StatusItemHost.h"

namespace quor::platform {

StatusBar::StatusBar(StatusItemHost& host)
    : host_(host)
{
}

double StatusBar::thickness() const
{
    return host_.thickness();
}

std::unique_ptr<StatusItem> StatusBar::statusItem(double length)
{
    return std::make_unique<StatusItem>(host_, length);
}

void StatusBar::removeStatusItem(std::unique_ptr<StatusItem> item)
{
    item.reset();
}

} // namespace quor::platform
