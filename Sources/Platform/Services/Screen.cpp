// SPDX-License-Identifier: MIT
#include "Platform/Services/Screen.h"

#include <QGuiApplication>
#include <QScreen>

namespace quor::platform {

Screen Screen::fromQScreen(const QScreen& screen)
{
    return {
        .frame = screen.geometry(),
        .visibleFrame = screen.availableGeometry(),
        .auxiliaryTopLeftArea = std::nullopt,
        .backingScaleFactor = screen.devicePixelRatio(),
    };
}

std::optional<Screen> Screen::mainScreen()
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    return primary ? std::optional(fromQScreen(*primary)) : std::nullopt;
}

} // namespace quor::platform
