// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace quor::platform {

/// Finds rows by the first letters of their texts. Letters typed in quick succession are joined; the same
/// letter typed repeatedly goes through the rows that begin with it.
class TableViewTypeSelect final {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// A letter typed later than this after the one before begins a new text.
    static constexpr std::chrono::milliseconds timeout{1000};

    /// Adds the letters `typed` at `now`, and returns the row among `count` that begins with the text typed
    /// so far, ignoring case. Searches from `selectedRow` (-1 for none) to the end, then from the first row.
    /// Returns -1 if no row begins with the text, or if `typed` is empty.
    [[nodiscard]] int find(const QString& typed, TimePoint now, int selectedRow, int count,
        const std::function<QString(int row)>& textOfRow);

    /// Whether a letter typed now would be added to the text typed so far.
    [[nodiscard]] bool isTyping(TimePoint now) const
    {
        return !text_.isEmpty() && now - lastTyped_ < timeout;
    }

private:
    QString text_;
    TimePoint lastTyped_;
};

} // namespace quor::platform
