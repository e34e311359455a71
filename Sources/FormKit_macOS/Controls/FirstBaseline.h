// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

class QFont;
class QWidget;

namespace quor::formkit {

/// Implemented by a view that draws its text itself, and by a container without a layout, so that the label
/// of its row can stand on the same line.
class FirstBaselineProvider {
public:
    /// The distance from the view's top to the baseline of its first line of text, at its present size.
    [[nodiscard]] virtual int firstBaseline() const = 0;

protected:
    FirstBaselineProvider() = default;
    ~FirstBaselineProvider() = default;
    FirstBaselineProvider(const FirstBaselineProvider&) = default;
    FirstBaselineProvider& operator=(const FirstBaselineProvider&) = default;
};

/// Returns the distance from the top of an area of `height` to the baseline of a line of text that a style
/// draws in its middle.
[[nodiscard]] int centredBaseline(const QFont& font, int height);

/// Returns the distance from the top of `view` to the baseline of its first line of text, at its present size
/// and as its style draws it, in device-independent pixels. Knows labels, buttons, text fields, fields with
/// steppers and drop-downs of Qt, views that are a `FirstBaselineProvider`, and containers of such views,
/// whose layout it brings up to date. Returns `nullopt` for a view without a text.
[[nodiscard]] std::optional<int> firstBaseline(QWidget& view);

} // namespace quor::formkit
