// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace quor::platform {

class StatusBarButton;
class StatusItemHost;

/// One place in the status bar, with a button to draw in. Owned by whoever asked the bar for it;
/// the button belongs to the item. Main thread only.
class StatusItem final {
public:
    /// Told as a length: as wide as the button's content.
    static constexpr double variableLength = -1;

    StatusItem(StatusItemHost& host, double length);
    ~StatusItem(); ///< Takes the button from the host.
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;

    [[nodiscard]] StatusBarButton& button() const { return *button_; }

    /// Width in device-independent pixels, or `variableLength`. An unchanged one costs nothing.
    [[nodiscard]] double length() const { return length_; }
    void setLength(double length);

private:
    StatusItemHost& host_;
    std::unique_ptr<StatusBarButton> button_;
    double length_;
};

} // namespace quor::platform
