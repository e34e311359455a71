// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>

#include <chrono>

namespace quor::test {

/// What stands at the right end of the bar on the screen, pixel for pixel; null while there is none.
/// The screen behind it is black, the bar is not.
[[nodiscard]] QImage shownItem();

/// How many pixels of the picture come within a hair of that colour.
[[nodiscard]] int countOf(const QColor& color, const QImage& picture);

/// Turns the event loop until the bar shows something else than `before`, and that has come to rest;
/// returns it, or a null picture if the bar does not change within `limit`.
[[nodiscard]] QImage nextItem(
    const QImage& before, std::chrono::milliseconds limit = std::chrono::seconds(10));

/// Turns the event loop until the bar shows exactly this; false if it does not.
[[nodiscard]] bool shows(const QImage& item);

} // namespace quor::test
