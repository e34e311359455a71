// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

class QWidget;

namespace quor::platform {

class Appearance;

/// How long an animation in `view` takes that is to take `wanted`: zero if the desktop's animations are off,
/// or those of the view's style; the change then has to happen at once. Main thread only.
[[nodiscard]] std::chrono::milliseconds animationDuration(
    const Appearance& appearance, const QWidget& view, std::chrono::milliseconds wanted);

} // namespace quor::platform
