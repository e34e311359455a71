// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Rendering/FormRowLayout.h"

#include "FormKit_macOS/Controls/FirstBaseline.h"
#include "FormKit_macOS/Rendering/FormMetrics.h"
#include "FormKit_macOS/Rendering/ReleaseWidget.h"

#include <QPointer>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace quor::formkit {

namespace {

constexpr int bottomPadding = 20;
constexpr int labelInputSpacing = 10;
constexpr int inputDetailSpacing = 10;
constexpr int labelAboveSpacing = 4;

int padding(FormRowExtent extent)
{
    return extent == FormRowExtent::separator ? separatorPadding : edgePadding;
}

void setGeometryIfNew(QWidget& widget, const QRect& geometry)
{
    if (widget.geometry() != geometry || !widget.testAttribute(Qt::WA_Resized))
        widget.setGeometry(geometry);
}

} // namespace

/// Keeps what its widget answers about its size, and counts hidden widgets, too: rows are measured before
/// they are shown.
class FormRowLayout::Item final : public QWidgetItemV2 {
public:
    using QWidgetItemV2::QWidgetItemV2;
    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] int heightFor(int width) const
    {
        const int least = wid->minimumHeight();
        const int height = hasHeightForWidth() ? heightForWidth(width) : sizeHint().height();
        return std::clamp(height, least, std::max(least, wid->maximumHeight()));
    }
};

FormRowLayout::FormRowLayout(QWidget& container)
    : QLayout(&container)
{
    setContentsMargins(0, 0, 0, 0);
}

FormRowLayout::~FormRowLayout()
{
    for (auto* const items : {&items_, &leaving_}) {
        for (const auto& item : std::exchange(*items, {})) {
            if (QWidget* const widget = item->widget())
                releaseWidget(*widget, parentWidget());
        }
    }
}

void FormRowLayout::setRows(const std::vector<Row>& rows, Form::Layout layout, double inputSizeRatio)
{
    // Until all rows are there, each widget that is shown would place all the others.
    setEnabled(false);
    std::unordered_map<QWidget*, std::unique_ptr<Item>> present;
    for (auto& item : std::exchange(items_, {})) {
        if (QWidget* const widget = item->widget())
            present.emplace(widget, std::move(item));
    }
    rows_.clear();
    std::vector<QPointer<QWidget>> shown;
    const auto add = [&](QWidget* widget) -> Item* {
        if (!widget)
            return nullptr;
        if (const auto found = present.find(widget); found != present.end()) {
            items_.push_back(std::move(found->second));
            present.erase(found);
        } else {
            if (widget->parentWidget() != parentWidget())
                widget->setParent(parentWidget());
            items_.push_back(std::make_unique<Item>(widget));
        }
        if (widget->isHidden())
            shown.emplace_back(widget);
        return items_.back().get();
    };
    for (const Row& row : rows)
        rows_.push_back({row.style, add(row.view), add(row.label), add(row.detail)});
    layout_ = layout;
    inputSizeRatio_ = inputSizeRatio > 0 ? inputSizeRatio : 0; // 0 for NaN, too
    for (auto& [widget, item] : present)
        leaving_.push_back(std::move(item));
    // A view that loses the focus may run handlers of the application, which may end the layout. It then
    // releases the views that are still leaving.
    const QPointer<FormRowLayout> life(this);
    for (std::size_t i = 0; life && i < leaving_.size(); ++i) {
        if (QWidget* const widget = leaving_[i]->widget())
            releaseWidget(*widget, parentWidget());
    }
    if (life)
        leaving_.clear();
    for (const auto& widget : shown) {
        if (life && widget)
            widget->show();
    }
    if (!life)
        return;
    setEnabled(true);
    invalidate();
}

QLayoutItem* FormRowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? items_[std::size_t(index)].get() : nullptr;
}

QLayoutItem* FormRowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    const auto found = items_.begin() + index;
    detach(**found);
    Item* const taken = found->release();
    items_.erase(found);
    invalidate();
    return taken;
}

void FormRowLayout::detach(Item& item)
{
    for (PlacedRow& row : rows_) {
        for (Item** part : {&row.view, &row.label, &row.detail}) {
            if (*part == &item)
                *part = nullptr;
        }
    }
}

void FormRowLayout::addItem(QLayoutItem*) { }

void FormRowLayout::invalidate()
{
    leastWidth_ = -1;
    lastSize_ = {};
    QLayout::invalidate();
}

int FormRowLayout::heightForWidth(int width) const
{
    if (lastSize_.width() == width)
        return lastSize_.height();
    int bottom = 0;
    for (const PlacedRow& row : rows_) {
        if (row.view)
            bottom += row.style.gapAbove + labelHeightAbove(row)
                + row.view->heightFor(columns(row, width).viewWidth);
    }
    lastSize_ = {width, bottom > 0 ? bottom + bottomPadding : 0};
    return lastSize_.height();
}

QSize FormRowLayout::minimumSize() const
{
    if (leastWidth_ < 0) {
        leastWidth_ = 0;
        for (const PlacedRow& row : rows_)
            leastWidth_ = std::max(leastWidth_, leastWidth(row));
    }
    return {leastWidth_, heightForWidth(std::max(leastWidth_, parentWidget()->width()))};
}

int FormRowLayout::leastWidth(const PlacedRow& row) const
{
    if (!row.view)
        return 0;
    // A view beside a detail may be compressed.
    const int width
        = row.detail ? row.detail->sizeHint().width() + inputDetailSpacing : row.view->minimumSize().width();
    constexpr double leastRatio = 0.05; // a smaller one must not make the form wider than every screen
    const int full = width + 2 * padding(row.style.extent);
    if (row.style.extent == FormRowExtent::input && inputSizeRatio_ > 0)
        return std::max(full, int(std::ceil(width / std::max(inputSizeRatio_, leastRatio))));
    return full;
}

int FormRowLayout::labelHeightAbove(const PlacedRow& row) const
{
    return row.label && layout_ == Form::Layout::topHeaders
        ? row.label->sizeHint().height() + labelAboveSpacing
        : 0;
}

FormRowLayout::Columns FormRowLayout::columns(const PlacedRow& row, int width) const
{
    Columns columns;
    const int margin = padding(row.style.extent);
    const bool isInput = row.style.extent == FormRowExtent::input;
    int viewWidth = width - 2 * margin;
    if (isInput)
        viewWidth = std::min(viewWidth, int(std::lround(width * inputSizeRatio_)));
    columns.viewLeft = width - margin - viewWidth;
    if (row.detail) {
        columns.detail = row.detail->sizeHint();
        viewWidth -= columns.detail.width() + inputDetailSpacing;
    }
    columns.viewWidth = std::max(0, viewWidth);
    return columns;
}

void FormRowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    int top = rect.top();
    for (const PlacedRow& row : rows_) {
        if (!row.view) {
            if (row.label)
                row.label->widget()->hide();
            continue;
        }
        top += row.style.gapAbove + labelHeightAbove(row);
        const Columns columns = this->columns(row, rect.width());
        const int height = row.view->heightFor(columns.viewWidth);
        place(row, columns, rect, top, height);
        top += height;
    }
}

void FormRowLayout::place(
    const PlacedRow& row, const Columns& columns, const QRect& area, int top, int height) const
{
    const auto direction = parentWidget()->layoutDirection();
    const auto placeItem = [&](const Item& item, int left, int itemTop, int width, int itemHeight) {
        const QRect geometry(area.left() + left, itemTop, std::max(0, width), itemHeight);
        setGeometryIfNew(*item.widget(), QStyle::visualRect(direction, area, geometry));
    };
    // A view that limits its width starts where the others do.
    const int viewWidth = std::min(columns.viewWidth, row.view->widget()->maximumWidth());
    placeItem(*row.view, columns.viewLeft, top, viewWidth, height);
    if (row.detail) {
        const QSize size = columns.detail;
        placeItem(*row.detail, area.width() - edgePadding - size.width(), top + (height - size.height()) / 2,
            size.width(), size.height());
    }
    if (!row.label)
        return;
    const int labelHeight = row.label->sizeHint().height();
    if (layout_ == Form::Layout::topHeaders)
        placeItem(*row.label, edgePadding, top - labelAboveSpacing - labelHeight,
            area.width() - 2 * edgePadding, labelHeight);
    else
        placeItem(*row.label, edgePadding, top + labelOffset(row, height),
            columns.viewLeft - labelInputSpacing - edgePadding, labelHeight);
}

int FormRowLayout::labelOffset(const PlacedRow& row, int viewHeight) const
{
    const int labelHeight = row.label->sizeHint().height();
    if (const auto baseline = firstBaseline(*row.view->widget()))
        return *baseline - centredBaseline(row.label->widget()->font(), labelHeight);
    // Without a text: in the middle of a view that is about one line high, at the top of a higher one.
    return viewHeight < 2 * labelHeight ? (viewHeight - labelHeight) / 2 : 0;
}

} // namespace quor::formkit
