// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/WindowServer.h"

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>

namespace quor::platform {

/// The `WindowServer` for X11. If Qt does not use X11, `grabKeyboard` returns false, `releaseKeyboard` has
/// no effect and `orderedWindows` returns an empty list; `isCompositing` returns true on Wayland and false on
/// other platforms, and observers are never called. Observers are also never called if the X server has no
/// XFixes extension.
class X11WindowServer final : public QObject, public WindowServer, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11WindowServer() = default;
    ~X11WindowServer() override;

    [[nodiscard]] bool isCompositing() override;
    Subscription observeCompositing(std::function<void()> changed) override;
    void prepareMenuWindow(QWidget& window) override;
    /// In device-independent pixels only if the X server has no XFixes extension.
    void setShape(QWidget& window, const QRegion& shape) override;
    [[nodiscard]] bool grabKeyboard(QWindow& window) override;
    void releaseKeyboard(QWindow& window) override;
    [[nodiscard]] std::vector<QWindow*> orderedWindows() override;
    [[nodiscard]] bool missesPresses() const override;

Q_SIGNALS:
    void compositingChanged(); ///< used by `observeCompositing`; do not connect to it directly

private:
    void watchCompositor();
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    std::uint32_t watcher_ = 0; ///< A window of this object that gets the selection's events; 0 until needed.
    std::uint32_t selection_ = 0; ///< The selection that a running compositor owns.
    std::uint8_t firstEvent_ = 0; ///< The number of the first event of the XFixes extension.
};

} // namespace quor::platform
