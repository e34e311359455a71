// SPDX-License-Identifier: MIT
#pragma once

#include "System/Program.h"
#include "System/ScreenReader.h"

#include <optional>

namespace quor::test {

/// The helper's menu as users see it: its window as the X server reports it, its content as a screen reader
/// gets it. Functions that wait run the event loop, and return false after 15 seconds.
class Menu final {
public:
    Menu(ScreenReader& reader, const Program& helper);

    /// The frame of its window in device pixels; null while it is not on the screen.
    [[nodiscard]] QRect frame() const;
    [[nodiscard]] bool opens() const; ///< Waits until the window is on the screen.
    [[nodiscard]] bool closes() const; ///< Waits until the window is not on the screen.

    /// Returns what has this name after `further` others of the name, or `nullopt` if it is not shown.
    [[nodiscard]] std::optional<ScreenReader::Thing> find(const QString& name, int further = 0) const;
    /// Waits until `find` finds the name.
    [[nodiscard]] bool shows(const QString& name) const;
    /// Waits until the row with this name is the only selected one.
    [[nodiscard]] bool selects(const QString& name) const;
    /// Waits until the name is shown, moves the pointer there, and waits until it is selected.
    [[nodiscard]] bool hover(const QString& name) const;
    /// Waits until `find` finds the name, moves the pointer there and clicks.
    [[nodiscard]] bool click(const QString& name, int further = 0) const;

private:
    [[nodiscard]] bool pointAt(const QString& name, int further, const QString& andThen) const;

    ScreenReader& reader_;
    const Program& helper_;
};

/// A window of another program, into which the user types. It gets the focus when it is created.
class TypingWindow final {
public:
    explicit TypingWindow(QPoint place = {0, 300});

    /// Gives it the focus and waits until it is active.
    [[nodiscard]] bool takesFocus();
    [[nodiscard]] bool isActive();
    [[nodiscard]] QString text(); ///< All text that was typed into it.
    /// Waits until it is active, then types. Returns whether exactly `text` is added to its text.
    [[nodiscard]] bool takes(const QString& text);
    [[nodiscard]] qint64 pid() const { return program_.pid(); }

    const QPoint middle; ///< The middle of the window on the screen.

private:
    [[nodiscard]] QString last(const QString& inLine);

    Program program_;
};

/// Whether a window of the process has the X input focus.
[[nodiscard]] bool hasFocus(qint64 pid);

/// Runs xdotool with these arguments, separated by spaces, and waits for its end. Adds a failure to the test
/// if xdotool fails.
void xdotool(const QString& arguments);

} // namespace quor::test
