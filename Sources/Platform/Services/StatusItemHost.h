// SPDX-License-Identifier: MIT
#pragma once

namespace quor::platform {

class StatusItem;

/// Shows status items to the user: in this library's own strip, or in a panel of the desktop. Items stay
/// owned by the callers of `StatusBar::statusItem`. Main thread only.
class StatusItemHost {
public:
    virtual ~StatusItemHost() = default;

    /// Height of the bar, in device-independent pixels. Constant for the life of the host.
    [[nodiscard]] virtual double thickness() const = 0;

    /// Called when an item is created. Shows the item's button: the host places the button and may
    /// become its parent.
    virtual void attach(StatusItem& item) = 0;
    /// Called when an item ends. Must leave its button hidden and without a parent.
    virtual void detach(StatusItem& item) = 0;

    /// Called when `StatusItem::width` returns another value than before.
    virtual void widthChanged(StatusItem& item) = 0;
};

} // namespace quor::platform
