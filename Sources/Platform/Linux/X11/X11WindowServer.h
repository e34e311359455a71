// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/WindowServer.h"

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>

namespace quor::platform {

/// The window system as the X server and its compositor offer it. A compositor runs while somebody
/// owns the selection that is named for it. Where the application does not run through X there are no
/// keys to be had, and every window is taken for composited under Wayland, for opaque elsewhere.
class X11WindowServer final : public QObject, public WindowServer, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11WindowServer() = default;
    ~X11WindowServer() override;

    [[nodiscard]] bool isCompositing() override;
    Subscription observeCompositing(std::function<void()> changed) override;
    void prepareMenuWindow(QWidget& window) override;
    [[nodiscard]] bool grabKeyboard(QWindow& window) override;
    void releaseKeyboard(QWindow& window) override;
    [[nodiscard]] bool missesPresses() const override;

Q_SIGNALS:
    void compositingChanged();

private:
    void watchCompositor();
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    std::uint32_t watcher_ = 0; ///< A window of ours that is told of owners of the selection.
    std::uint32_t selection_ = 0;
    std::uint8_t firstEvent_ = 0;
};

} // namespace quor::platform
