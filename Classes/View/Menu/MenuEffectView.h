// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"

#include <QWidget>

namespace quor::platform {
class WindowServer;
}

namespace quor::helper {

/// The ground that a menu stands on: rounded and a little translucent where a compositor mixes windows,
/// else opaque and square, in the colours of the palette with a thin edge. Follows compositors that come
/// and go. Under a palette of high contrast it is opaque, with an edge in the colour of the text.
///
/// Its window must have an alpha channel. The window server must outlive it. Main thread only.
class MenuEffectView final : public QWidget {
    Q_OBJECT

public:
    explicit MenuEffectView(platform::WindowServer& windowServer, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    platform::WindowServer& windowServer_;
    bool composited_;
    platform::Subscription compositing_;
};

} // namespace quor::helper
