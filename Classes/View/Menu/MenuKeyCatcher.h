// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/Callback.h"

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <vector>

class QWidget;

namespace quor::platform {
class WindowServer;
}

namespace quor::helper {

/// Keeps what the user types between the request for the menu and the moment when its window has the
/// keyboard. So no letter goes to the application in front, and none is lost.
///
/// While it catches keys, it takes the keyboard from all applications; `limitReached` is called after two
/// seconds to end that. Main thread only.
class MenuKeyCatcher final : public QObject {
    Q_OBJECT

public:
    /// `windowServer` must outlive the catcher.
    explicit MenuKeyCatcher(platform::WindowServer& windowServer);
    ~MenuKeyCatcher() override; ///< Like `drop`.

    /// Escape was pressed. Called after `drop`; may delete the catcher.
    platform::Callback<void()> escapePressed;
    /// Two seconds have passed since `start`, and keys are still caught. The handler must end that by
    /// `handOver`, `keepTextOnly` or `drop`.
    platform::Callback<void()> limitReached;

    /// Begins to catch keys, by way of this window, which must be shown. If it catches keys already, those
    /// are kept and the two seconds start again; else keys that are left from before are dropped.
    void start(QWidget& window);

    /// Stops catching, and sends the receiver all kept keys in their order as if they were pressed now. Text
    /// from input methods, as from dead keys, is among them. The keys may delete the receiver or the catcher.
    void handOver(QWidget& receiver);

    /// Stops catching. Keeps typed text for a later `handOver`, but no commands such as Return: the user
    /// cannot mean rows that come so late.
    void keepTextOnly();

    /// Stops catching, and drops what was typed.
    void drop();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void grab();
    void letGo();
    [[nodiscard]] bool takesKey(QObject* watched, const QEvent& event);

    platform::WindowServer& windowServer_;
    QPointer<QWidget> window_; ///< null while no keys are caught
    QTimer grabAgain_;
    platform::WorkItem limit_;
    std::vector<std::unique_ptr<QEvent>> keys_; ///< key events and events of input methods
};

} // namespace quor::helper
