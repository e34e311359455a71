// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"

#include <QWidget>

namespace quor::platform {
class WindowServer;
}

namespace quor::helper {

/// The background of a menu, in the colours of the palette, with a thin edge. It has round corners and is
/// slightly translucent while a compositor runs, else it is opaque and square. With a palette of high
/// contrast it is always opaque, and the edge has the colour of the text.
///
/// Its window must have an alpha channel. Main thread only.
class MenuEffectView final : public QWidget {
    Q_OBJECT

public:
    /// `windowServer` must outlive the view.
    explicit MenuEffectView(platform::WindowServer& windowServer, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    platform::WindowServer& windowServer_;
    bool composited_;
    platform::Subscription compositing_;
};

} // namespace quor::helper
