// SPDX-License-Identifier: MIT
#include "Platform/Views/Animation.h"

#include "Platform/Services/Appearance.h"

#include <QStyle>
#include <QWidget>

namespace quor::platform {

std::chrono::milliseconds animationDuration(
    const Appearance& appearance, const QWidget& view, std::chrono::milliseconds wanted)
{
    const bool animates = appearance.animates()
        && view.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &view) > 0;
    return animates ? wanted : std::chrono::milliseconds::zero();
}

} // namespace quor::platform
