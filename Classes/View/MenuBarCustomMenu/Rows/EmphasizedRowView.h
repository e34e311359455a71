// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Table/TableRowView.h"

namespace quor::helper {

/// A row of the menu. A selected row is always drawn like one in a view that has the keyboard, since the
/// search field has it while the user walks through the rows. The selection is a bar with round corners in
/// the user's accent colour.
///
/// Main thread only.
class EmphasizedRowView final : public platform::TableRowView {
    Q_OBJECT

public:
    static constexpr int sideMargin
        = 12; ///< free on each side of the row's view, in device-independent pixels
    static constexpr int listInset = 6; ///< for the table around the rows, on each side

    explicit EmphasizedRowView(QWidget* parent = nullptr);

    [[nodiscard]] bool isEmphasized() const override { return true; }
    void setEmphasized(bool emphasized) override; ///< Has no effect.
    [[nodiscard]] platform::TableViewSelectionStyle selectionHighlightStyle() const override
    {
        return platform::TableViewSelectionStyle::none;
    }
    void setSelectionHighlightStyle(platform::TableViewSelectionStyle style) override; ///< Has no effect.

protected:
    void drawSelection(QPainter& painter) const override;
};

} // namespace quor::helper
