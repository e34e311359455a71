// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/WindowServer.h"

#include <QPointer>
#include <QRect>
#include <QWidget>
#include <QWindow>

namespace quor::test {

/// A window system that a test controls, and that records what the code under test asks for.
class TestWindowServer final : public platform::WindowServer {
public:
    [[nodiscard]] bool isCompositing() override { return composited; }
    platform::Subscription observeCompositing(std::function<void()> changed) override
    {
        compositingChanged = std::move(changed);
        return platform::Subscription([this] { compositingChanged = nullptr; });
    }
    void prepareMenuWindow(QWidget& window) override { preparedFrame = window.geometry(); }
    [[nodiscard]] bool grabKeyboard(QWindow& window) override
    {
        if (refusals > 0)
            return --refusals, false;
        keyboard = &window;
        return true;
    }
    void releaseKeyboard(QWindow&) override { keyboard = nullptr; }
    [[nodiscard]] std::vector<QWindow*> orderedWindows() override { return {}; }
    [[nodiscard]] bool missesPresses() const override { return wayland; }

    bool composited = false;
    bool wayland = false;
    int refusals = 0; ///< how many grabs fail before one succeeds
    QPointer<QWindow> keyboard; ///< the window that has grabbed all keys
    QRect preparedFrame;
    std::function<void()> compositingChanged;
};

} // namespace quor::test
