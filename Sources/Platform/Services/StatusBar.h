// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/StatusItem.h"

#include <memory>

namespace quor::platform {

class StatusItemHost;

/// The bar of status items. Makes items and hands them to the host that shows them.
/// Borrows the host, which must outlive it and every item. Main thread only.
class StatusBar final {
public:
    explicit StatusBar(StatusItemHost& host);

    /// Height of the bar, in device-independent pixels.
    [[nodiscard]] double thickness() const;

    /// A new item, shown at once. `length` is its width, or `StatusItem::variableLength`. It leaves
    /// the bar as it is destroyed.
    [[nodiscard]] std::unique_ptr<StatusItem> statusItem(double length);

    /// Takes the item from the bar and ends it.
    void removeStatusItem(std::unique_ptr<StatusItem> item);

private:
    StatusItemHost& host_;
};

} // namespace quor::platform
