// SPDX-License-Identifier: MIT
#pragma once

#include "System/Program.h"
#include "System/ScreenReader.h"

#include <optional>

namespace quor::test {

/// The helper's menu as it stands on the screen: its window by the X server's word, what is in it by
/// what a screen reader is told. All waiting turns the event loop, and gives up after some seconds.
class Menu final {
public:
    Menu(ScreenReader& reader, const Program& helper);

    /// Where its window is, in device pixels; null while there is none on the screen.
    [[nodiscard]] QRect frame() const;
    [[nodiscard]] bool opens() const;
    [[nodiscard]] bool closes() const;

    /// The thing of that name, or the one that many further below; none if there are fewer.
    [[nodiscard]] std::optional<ScreenReader::Thing> find(const QString& name, int further = 0) const;
    [[nodiscard]] bool shows(const QString& name) const;
    /// Waits until the row, and no other, is selected.
    [[nodiscard]] bool selects(const QString& name) const;
    /// Goes there with the pointer and waits until it is selected.
    [[nodiscard]] bool hover(const QString& name) const;
    /// Waits for the thing, goes there with the pointer and clicks; false if it does not come.
    [[nodiscard]] bool click(const QString& name, int further = 0) const;

private:
    [[nodiscard]] bool pointAt(const QString& name, int further, const QString& andThen) const;

    ScreenReader& reader_;
    const Program& helper_;
};

/// A window of another program, which has the focus as it begins.
class TypingWindow final {
public:
    explicit TypingWindow(QPoint place = {0, 300});

    [[nodiscard]] bool takesFocus();
    [[nodiscard]] bool isActive();
    [[nodiscard]] QString text(); ///< what was typed into it
    /// Waits for the focus, then types there; false unless exactly that comes after what was there.
    [[nodiscard]] bool takes(const QString& text);
    [[nodiscard]] qint64 pid() const { return program_.pid(); }

    const QPoint middle; ///< of the window, on the screen

private:
    [[nodiscard]] QString last(const QString& inLine);

    Program program_;
};

/// Whether a window of the process has the X input focus.
[[nodiscard]] bool hasFocus(qint64 pid);

/// Runs xdotool with these arguments, parted by blanks, to its end.
void xdotool(const QString& arguments);

} // namespace quor::test
