// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Table/TableRowView.h"

namespace quor::helper {

/// A row of the menu. Always drawn as in the view that has the keyboard, since the search field has
/// it while the list is walked; and with the menu's own mark, a bar with round corners in the user's
/// accent colour, in place of the table's.
///
/// It keeps `sideMargin` free on both sides of its view. A list that gives its table content insets of
/// `EmphasizedRowView::listInset` on both sides has 16 of its 52 device-independent pixels left for a
/// scroll bar. Main thread only.
class EmphasizedRowView final : public platform::TableRowView {
    Q_OBJECT

public:
    static constexpr int sideMargin = 12;
    static constexpr int listInset = 6;

    explicit EmphasizedRowView(QWidget* parent = nullptr);

    [[nodiscard]] bool isEmphasized() const override { return true; }
    void setEmphasized(bool emphasized) override; ///< ignored
    [[nodiscard]] platform::TableViewSelectionStyle selectionHighlightStyle() const override
    {
        return platform::TableViewSelectionStyle::none;
    }
    void setSelectionHighlightStyle(platform::TableViewSelectionStyle style) override; ///< ignored

protected:
    void drawSelection(QPainter& painter) const override;
};

} // namespace quor::helper
