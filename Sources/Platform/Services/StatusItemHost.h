// SPDX-License-Identifier: MIT
#pragma once

namespace quor::platform {

class StatusItem;

/// Whatever puts status items before the user: the strip of our own, a panel of the desktop.
/// Items are told by reference and stay owned by whoever asked the status bar for them. Main thread only.
class StatusItemHost {
public:
    virtual ~StatusItemHost() = default;

    /// Height of the bar, in device-independent pixels. Constant for the host's life.
    [[nodiscard]] virtual double thickness() const = 0;

    /// Shows the item's button. The host places the button and may become its parent, but must
    /// let it go, unparented and hidden, in `detach`.
    virtual void attach(StatusItem& item) = 0;
    virtual void detach(StatusItem& item) = 0;

    /// The item's length has changed; lay it out again.
    virtual void lengthChanged(StatusItem& item) = 0;
};

} // namespace quor::platform
