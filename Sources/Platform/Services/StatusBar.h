// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/StatusItem.h"

#include <memory>

namespace quor::platform {

class StatusItemHost;

/// The bar of status items: creates items and passes them to the host that shows them. Borrows the host,
/// which must outlive the bar and every item. Main thread only.
class StatusBar final {
public:
    explicit StatusBar(StatusItemHost& host);

    /// Height of the bar, in device-independent pixels.
    [[nodiscard]] double thickness() const;

    /// Returns a new item, which is shown at once. `length` is its width in device-independent pixels,
    /// or `StatusItem::variableLength`.
    [[nodiscard]] std::unique_ptr<StatusItem> statusItem(double length);

    /// Removes the item from the bar and deletes it, as the item's destructor does.
    void removeStatusItem(std::unique_ptr<StatusItem> item);

private:
    StatusItemHost& host_;
};

} // namespace quor::platform
