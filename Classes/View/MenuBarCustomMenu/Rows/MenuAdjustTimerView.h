// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenuBarCustomMenu/Rows/MenuTimerRow.h"

#include <functional>

namespace quor::helper {

/// The row that tells when the running timer started and moves that start by a click. Complete when
/// created. Main thread only.
class MenuAdjustTimerView final : public MenuTimerRow {
    Q_OBJECT

public:
    explicit MenuAdjustTimerView(QWidget* parent = nullptr);

    /// Minutes to move the start by; 0: to the end of the entry before it. May end the view.
    std::function<void(int minutes)> adjustHandler;
    double startTime = 0; ///< seconds since 1970

    /// Shows `startTime`. Hides `QWidget::update`, which paints alone.
    void update();

    void buttonClicked(const MenuTimerButton& button) override;
};

} // namespace quor::helper
