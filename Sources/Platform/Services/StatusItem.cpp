// SPDX-License-Identifier: MIT
#include "Platform/Services/StatusItem.h"

#include "Platform/Services/StatusItemHost.h"
#include "Platform/Views/StatusBarButton.h"

#include <utility>

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

double StatusItem::width() const
{
    return length_ < 0 ? button_->sizeHint().width() : length_;
}

void StatusItem::setImage(TemplateImage image, double length)
{
    const double widthBefore = width();
    length_ = length;
    button_->setImage(std::move(image));
    if (width() != widthBefore)
        host_.widthChanged(*this);
}

} // namespace quor::platform
