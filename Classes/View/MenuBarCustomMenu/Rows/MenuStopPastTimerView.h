// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Services/Clock.h"
#include "Platform/Text/RelativeDateTimeFormatter.h"
#include "View/MenuBarCustomMenu/Rows/MenuTimerRow.h"

namespace quor::helper {

/// The row that lets the user pick a moment near now, and stops the timer at that moment. The label does not
/// follow the clock: it shows the moment as of the last click. The choice stays while the table keeps the
/// view, also off the screen. Main thread only.
class MenuStopPastTimerView final : public MenuTimerRow {
    Q_OBJECT

public:
    /// `clock` must outlive the view.
    explicit MenuStopPastTimerView(const platform::Clock& clock, QWidget* parent = nullptr);

    /// The timer is to be stopped so many minutes from now; negative is the past. May delete the view.
    platform::Callback<void(int minutes)> stopHandler;

    /// Returns the text of the label for a moment.
    [[nodiscard]] static QString labelText(platform::Date stopTime);

    /// The chosen minutes from now, without bounds in either direction.
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
