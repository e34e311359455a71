// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuRowMeasurer.h"

#include "View/MenuBarCustomMenu/Rows/MenuAdjustTimerView.h"
#include "View/MenuBarCustomMenu/Rows/MenuStopPastTimerView.h"

#include <algorithm>
#include <variant>

namespace quor::helper {

MenuRowMeasurer::MenuRowMeasurer(QWidget& parent, const platform::Clock& clock)
    : clock_(clock)
    , prototypeCellView_(*new MenuCellView(&parent))
{
    prototypeCellView_.hide();
}

int MenuRowMeasurer::measure(const std::vector<MenuEntry>& rows, int atLeast)
{
    adjustStartSize_.reset();
    stopPastSize_.reset();
    cellHeight_ = prototypeCellView_.metrics().height(); // all entries are of one height
    int widest = atLeast;
    for (auto row = rows.begin(); row != rows.end() && widest < maxWidth; ++row)
        widest = std::max(widest, widthOf(*row, widest - sideRoom) + sideRoom);
    return std::max(atLeast, std::min(widest, maxWidth));
}

int MenuRowMeasurer::widthOf(const MenuEntry& row, int widest)
{
    if (const auto* entry = std::get_if<MenuEntry::Entry>(&row.value)) {
        if (!prototypeCellView_.metrics().mayBeWiderThan(*entry, widest))
            return 0;
        prototypeCellView_.data = *entry;
        prototypeCellView_.rebuild();
        return prototypeCellView_.sizeHint().width();
    }
    if (std::holds_alternative<MenuEntry::AdjustStart>(row.value))
        return adjustStartSize().width();
    if (std::holds_alternative<MenuEntry::StopPast>(row.value))
        return stopPastSize().width();
    return 0;
}

const QSize& MenuRowMeasurer::adjustStartSize() const
{
    if (!adjustStartSize_)
        adjustStartSize_ = MenuAdjustTimerView().sizeHint();
    return *adjustStartSize_;
}

const QSize& MenuRowMeasurer::stopPastSize() const
{
    if (!stopPastSize_)
        stopPastSize_ = MenuStopPastTimerView(clock_).sizeHint();
    return *stopPastSize_;
}

} // namespace quor::helper
