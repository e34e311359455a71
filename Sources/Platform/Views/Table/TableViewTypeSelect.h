// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace quor::platform {

/// Finds rows by what the user types: letters that follow each other soon grow into one beginning
/// of a text, and one letter again and again goes through the rows that begin with it.
class TableViewTypeSelect final {
public:
    /// How long a text is added to after its last letter.
    static constexpr std::chrono::milliseconds timeout{1000};

    /// The row among `count` that begins with what has been typed by now, without regard to case,
    /// looking on from `selectedRow` (-1 for none) and round the end; -1 if there is none. `now` is
    /// any time that does not run backwards.
    [[nodiscard]] int find(const QString& typed, std::chrono::milliseconds now, int selectedRow, int count,
        const std::function<QString(int row)>& textOfRow);

    /// Whether a letter typed now would be added to others.
    [[nodiscard]] bool isTyping(std::chrono::milliseconds now) const
    {
        return !text_.isEmpty() && now - last_ < timeout;
    }

private:
    QString text_;
    std::chrono::milliseconds last_{0};
};

} // namespace quor::platform
