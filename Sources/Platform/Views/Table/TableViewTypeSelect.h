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
    /// so far, ignoring case. If no row does and all letters of the text are the same, searches for a row
    /// that begins with that letter. Returns -1 if there is no such row, or if `typed` is empty.
    ///
    /// The search begins after `selectedRow` (-1 if no row is selected), and goes on from the first row after
    /// the last. For a text that grows, the search begins at `selectedRow` itself.
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
