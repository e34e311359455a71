// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/DropdownRows.h"

#include "FormKit_macOS/DropDown/DropdownCellView.h"
#include "Platform/Views/Table/TableView.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace quor::formkit {

namespace {

constexpr int separatorHeight = 9;
constexpr int rowSideMargin = 4;

/// A rule in the middle of its row.
class DropdownSeparatorCell final : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(QRect(0, height() / 2, width(), 1), palette().color(QPalette::Mid));
    }
};

/// Draws the selection as in a view with the keyboard, which the search field has.
class EmphasizedRowView final : public platform::TableRowView {
public:
    EmphasizedRowView()
    {
        setSideMargin(rowSideMargin);
        TableRowView::setEmphasized(true);
    }
    void setEmphasized(bool) override { }
};

template <class View>
View& reusedOrNew(platform::TableView& table, const QString& identifier)
{
    if (auto* const view = dynamic_cast<View*>(table.makeView(identifier)))
        return *view;
    auto* const view = new View;
    view->setObjectName(identifier);
    return *view;
}

} // namespace

DropdownRows::DropdownRows(
    std::shared_ptr<const DropdownItems::List> items, std::optional<int> selectedIndex, int rowHeight)
    : items_(std::move(items))
    , selectedIndex_(selectedIndex)
    , rowHeight_(rowHeight)
{
}

void DropdownRows::showAll()
{
    found_.reset();
    searched_.clear();
}

void DropdownRows::showFound(std::vector<int> found, const QString& searched)
{
    found_ = std::move(found);
    searched_ = searched;
}

std::optional<int> DropdownRows::selectedRow() const
{
    if (!selectedIndex_)
        return std::nullopt;
    int row = *selectedIndex_;
    if (found_) {
        const auto place = std::lower_bound(found_->begin(), found_->end(), *selectedIndex_);
        if (place == found_->end() || *place != *selectedIndex_)
            return std::nullopt;
        row = int(place - found_->begin());
    }
    return row >= 0 && row < count() && itemAt(row).isEnabled ? std::optional(row) : std::nullopt;
}

int DropdownRows::numberOfRows(const platform::TableView&) const
{
    return count();
}

QWidget* DropdownRows::viewForRow(platform::TableView& table, int row)
{
    using namespace Qt::StringLiterals;
    const FormItem& item = itemAt(row);
    if (item.isSeparator())
        return &reusedOrNew<DropdownSeparatorCell>(table, u"separator"_s);
    auto& cell = reusedOrNew<DropdownCellView>(table, u"item"_s);
    cell.setItem(item, indexAt(row) == selectedIndex_, searched_);
    return &cell;
}

platform::TableRowView* DropdownRows::rowViewForRow(platform::TableView&, int)
{
    return new EmphasizedRowView;
}

int DropdownRows::heightOfRow(const platform::TableView&, int row) const
{
    return itemAt(row).isSeparator() ? separatorHeight : rowHeight_;
}

bool DropdownRows::shouldSelectRow(const platform::TableView&, int row) const
{
    return itemAt(row).isEnabled;
}

platform::TableViewRowDescription DropdownRows::describeRow(const platform::TableView&, int row) const
{
    const FormItem& item = itemAt(row);
    if (item.isSeparator())
        return {.text = {}, .role = QAccessible::Separator, .isEnabled = false, .isChecked = {}};
    return {.text = item.name,
        .isEnabled = item.isEnabled,
        .isChecked = indexAt(row) == selectedIndex_ ? std::optional(true) : std::nullopt};
}

void DropdownRows::didClickRow(platform::TableView&, int row)
{
    if (!itemAt(row).isEnabled)
        return;
    const FormItem item = itemAt(row); // this object may end
    chosen(item);
}

void DropdownRows::pointerDidHoverRow(platform::TableView& table, int row)
{
    if (row >= 0 && table.maySelectRow(row))
        table.selectRowIndexes(platform::TableViewRowSet(row), false);
    else
        table.deselectAll();
}

void DropdownRows::pointerDidLeave(platform::TableView& table)
{
    table.deselectAll();
}

} // namespace quor::formkit
