// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "View/MenuBarCustomMenu/Rows/MenuTimerRow.h"

namespace quor::helper {

/// The row that says when the running timer started, and moves that start by a click. Main thread only.
class MenuAdjustTimerView final : public MenuTimerRow {
    Q_OBJECT

public:
    explicit MenuAdjustTimerView(QWidget* parent = nullptr);

    /// The start is to be moved by so many minutes; 0: to the end of the entry before. May delete the view.
    platform::Callback<void(int minutes)> adjustHandler;
    double startTime = 0; ///< seconds since 1970

    /// Returns the text of the label for a start time in seconds since 1970.
    [[nodiscard]] static QString labelText(double startTime);

    /// Shows `startTime`. Hides `QWidget::update`, which only repaints.
    void update();

    void buttonClicked(const MenuTimerButton& button) override;
};

} // namespace quor::helper
