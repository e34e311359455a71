// SPDX-License-Identifier: MIT
#include "Platform/Services/StatusItem.h"

#include "Platform/Services/StatusItemHost.h"
#include "Platform/Views/StatusBarButton.h"

namespace quor::platform {

StatusItem::StatusItem(StatusItemHost& host, double length)
    : host_(host)
    , button_(std::make_unique<StatusBarButton>())
    , length_(length)
{
    host_.attach(*this);
}

StatusItem::~StatusItem()
{
    host_.detach(*this);
}

void StatusItem::setLength(double length)
{
    if (length == length_)
        return;
    length_ = length;
    host_.lengthChanged(*this);
}

} // namespace quor::platform
