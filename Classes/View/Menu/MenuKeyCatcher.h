// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/MainQueue.h"
#include "ToolKit_macOS/EventMonitor.h"

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class QWidget;

namespace quor::platform {
class EventMonitors;
class WindowServer;
} // namespace quor::platform

namespace quor::helper {

/// Keeps what the user types from the moment the menu is asked for until its window has the keyboard, so
/// that no letter goes to the program that was in front, and none is lost.
///
/// The keys are not kept from the user for long: catching ends when they are handed over, on Escape, with
/// a press in another application, and after two seconds; what was typed until then can be handed over
/// later still. Main thread only.
class MenuKeyCatcher final : public QObject {
    Q_OBJECT

public:
    MenuKeyCatcher(platform::WindowServer& windowServer, platform::EventMonitors& eventMonitors);
    ~MenuKeyCatcher() override; ///< Drops what it holds.

    std::function<void()> escapePressed; ///< Catching has ended, and what was typed is dropped.
    std::function<void()> pressedElsewhere; ///< The same.
    std::function<void()> limitReached; ///< It still catches: hand over, keep the text or drop.

    /// Has the keys come through this window, which must be shown. Where it catches already, what was
    /// typed stays and the time begins anew.
    void start(QWidget& window);
    /// Whether there is, or may yet be, something to hand over.
    [[nodiscard]] bool holdsKeys() const { return window_ || !keys_.empty(); }

    /// Ends catching and sends the receiver all keys, in their order, as if they were pressed now, and
    /// the text that input methods have made of keys, dead ones for instance.
    void handOver(QWidget& receiver);

    /// Ends catching. Of what was typed, text stays to be handed over; commands, as Return, do not wait for
    /// rows that the user has not seen.
    void keepTextOnly();

    /// Ends catching; what was typed is dropped.
    void drop();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void grab();
    void letGo();
    [[nodiscard]] bool takesKey(QObject* watched, const QEvent& event);

    platform::WindowServer& windowServer_;
    toolkit::EventMonitor pressesElsewhere_;
    QPointer<QWidget> window_;
    QTimer grabAgain_;
    platform::WorkItem limit_;
    std::vector<std::unique_ptr<QEvent>> keys_; ///< Of keys and of input methods.
    bool handingOver_ = false; ///< Until done, or dropped in between.
};

} // namespace quor::helper
