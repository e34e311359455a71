// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"
#include "Platform/Text/RelativeDateTimeFormatter.h"
#include "View/MenuBarCustomMenu/Rows/MenuTimerRow.h"

#include <functional>

namespace quor::helper {

/// The row that picks a moment near now and stops the timer there. The moment shown is that of the
/// last click; it does not tick. What was picked outlives the row's leaving the screen, with the view.
/// Main thread only.
class MenuStopPastTimerView final : public MenuTimerRow {
    Q_OBJECT

public:
    /// `clock` must outlive the view.
    explicit MenuStopPastTimerView(const platform::Clock& clock, QWidget* parent = nullptr);

    /// Minutes from now; negative is the past. May end the view.
    std::function<void(int minutes)> stopHandler;

    /// Minutes from now; no bound in either direction.
    [[nodiscard]] int adjustedStopTime() const { return adjustedStopTime_; }
    [[nodiscard]] MenuTimerButton& stopButton() { return *stopButton_; }

    void buttonClicked(const MenuTimerButton& button) override;

private:
    void showStopTime();

    const platform::Clock& clock_;
    platform::RelativeDateTimeFormatter relativeTimeFormatter_;
    int adjustedStopTime_ = 0;
    MenuTimerButton* stopButton_ = nullptr; ///< one of the buttons
};

} // namespace quor::helper
