// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Tinting.h"

#include <memory>

namespace quor::platform {

class StatusBarButton;
class StatusItemHost;

/// One place in the status bar, with a button that shows an image. Owned by the caller of
/// `StatusBar::statusItem`; owns the button. Main thread only.
class StatusItem final {
public:
    /// The length of an item that is as wide as its image.
    static constexpr double variableLength = -1;

    /// Adds the item to `host`, which must outlive it. `length` is as for `setImage`.
    StatusItem(StatusItemHost& host, double length);
    /// Removes the item from the host.
    ~StatusItem();
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;

    [[nodiscard]] StatusBarButton& button() const { return *button_; }

    /// Sets the button's image and the item's length together, so that the host lays the item out once.
    /// `length` is in device-independent pixels, or `variableLength`. What is unchanged is neither
    /// painted nor laid out again.
    void setImage(TemplateImage image, double length = variableLength);

    [[nodiscard]] double length() const { return length_; }

    /// The width for the host to give to the item: its length or, for a variable length, the width of
    /// the button's image. In device-independent pixels.
    [[nodiscard]] double width() const;

private:
    StatusItemHost& host_;
    std::unique_ptr<StatusBarButton> button_;
    double length_;
};

} // namespace quor::platform
