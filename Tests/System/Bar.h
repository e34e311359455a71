// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>

#include <chrono>

namespace quor::test {

/// Returns a picture of the bar at the top right corner of the screen, or a null picture if there is none.
/// The bar is recognized by its colour: the screen around it is black.
[[nodiscard]] QImage shownItem();

/// Returns how many pixels of the picture have nearly this colour.
[[nodiscard]] int countOf(const QColor& color, const QImage& picture);

/// Runs the event loop until `shownItem` differs from `before` and no longer changes, and returns it. Returns
/// a null picture if that does not happen within `limit`.
[[nodiscard]] QImage nextItem(
    const QImage& before, std::chrono::milliseconds limit = std::chrono::seconds(10));

/// Runs the event loop until `shownItem` equals `item`. Returns false if it does not within five seconds.
[[nodiscard]] bool shows(const QImage& item);

} // namespace quor::test
