// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Rendering/FormHeadingLayout.h"

#include "FormKit_macOS/Rendering/FormMetrics.h"
#include "FormKit_macOS/Rendering/ReleaseWidget.h"

#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace quor::formkit {

namespace {

constexpr int titleTop = 16;
constexpr int separatorGap = 8;
constexpr int buttonSpacing = 10;
constexpr int topWithoutHeading = 8;

int heightFor(const QLayoutItem& item, int width)
{
    return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

} // namespace

FormHeadingLayout::FormHeadingLayout(QWidget& container)
    : QLayout(&container)
{
    setContentsMargins(0, 0, 0, 0);
}

FormHeadingLayout::~FormHeadingLayout()
{
    for (const auto* const items : {&items_, &leaving_}) {
        for (const auto& item : *items) {
            if (QWidget* const widget = item ? item->widget() : nullptr)
                releaseWidget(*widget, parentWidget());
        }
    }
}

void FormHeadingLayout::setParts(const Parts& parts)
{
    const std::array<QWidget*, partCount> widgets{parts.title, parts.subtitle, parts.separator,
        parts.defaultButton, parts.cancelButton, parts.scrollArea};
    setEnabled(false);
    leaving_ = std::exchange(items_, {});
    // A button that loses the focus may run handlers of the application, which may end the layout. It then
    // releases all widgets.
    const QPointer<FormHeadingLayout> life(this);
    for (std::size_t i = 0; life && i < leaving_.size(); ++i) {
        QWidget* const old = leaving_[i] ? leaving_[i]->widget() : nullptr;
        if (old && std::find(widgets.begin(), widgets.end(), old) == widgets.end())
            releaseWidget(*old, parentWidget());
    }
    if (!life)
        return;
    leaving_ = {};
    for (std::size_t i = 0; i < widgets.size(); ++i) {
        if (!widgets[i])
            continue;
        if (widgets[i]->parentWidget() != parentWidget())
            widgets[i]->setParent(parentWidget());
        items_[i] = std::make_unique<QWidgetItemV2>(widgets[i]);
        // A button is hidden by its element.
        if (Part(i) != defaultButton && Part(i) != cancelButton)
            widgets[i]->show();
    }
    setEnabled(true);
    invalidate();
}

QWidget* FormHeadingLayout::widgetOf(Part part) const
{
    return items_[part] ? items_[part]->widget() : nullptr;
}

int FormHeadingLayout::count() const
{
    return int(std::count_if(items_.begin(), items_.end(), [](const auto& item) { return item != nullptr; }));
}

QLayoutItem* FormHeadingLayout::itemAt(int index) const
{
    for (const auto& item : items_) {
        if (item && index-- == 0)
            return item.get();
    }
    return nullptr;
}

QLayoutItem* FormHeadingLayout::takeAt(int index)
{
    for (auto& item : items_) {
        if (item && index-- == 0) {
            invalidate();
            return item.release();
        }
    }
    return nullptr;
}

void FormHeadingLayout::addItem(QLayoutItem*) { }

int FormHeadingLayout::arrange(const QRect& area, bool apply) const
{
    const auto direction = parentWidget()->layoutDirection();
    const auto place = [&](Part part, const QRect& geometry) {
        if (apply)
            widgetOf(part)->setGeometry(QStyle::visualRect(direction, area, geometry));
    };
    int bottom = area.top() + topWithoutHeading;
    if (widgetOf(title)) {
        const int left = area.left() + edgePadding;
        int right = area.left() + area.width() - edgePadding;
        const int top = area.top() + titleTop;
        const int titleHeight = items_[title]->sizeHint().height();
        int lowestButton = top;
        for (const Part part : {defaultButton, cancelButton}) {
            if (!widgetOf(part) || items_[part]->isEmpty())
                continue;
            const QSize size = items_[part]->sizeHint();
            const QRect geometry({right - size.width(), top + (titleHeight - size.height()) / 2}, size);
            place(part, geometry);
            right = geometry.left() - buttonSpacing;
            lowestButton = std::max(lowestButton, geometry.bottom() + 1);
        }
        place(title, QRect(left, top, std::max(0, right - left), titleHeight));
        bottom = top + titleHeight;
        if (widgetOf(subtitle)) {
            if (lowestButton <= bottom)
                right = area.left() + area.width() - edgePadding;
            const int height = items_[subtitle]->sizeHint().height();
            place(subtitle, QRect(left, bottom, std::max(0, right - left), height));
            bottom += height;
        }
        if (widgetOf(separator)) {
            const int width = std::max(0, area.width() - 2 * separatorPadding);
            const int height = heightFor(*items_[separator], width);
            place(separator, QRect(area.left() + separatorPadding, bottom + separatorGap, width, height));
            bottom += separatorGap + height;
        }
    }
    if (widgetOf(scrollArea))
        place(scrollArea,
            QRect(area.left(), bottom, area.width(), std::max(0, area.top() + area.height() - bottom)));
    return bottom - area.top();
}

int FormHeadingLayout::leastWidth() const
{
    const auto* const area = static_cast<const QScrollArea*>(widgetOf(scrollArea));
    const QWidget* const rows = area ? area->widget() : nullptr;
    return rows ? rows->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width() : 0;
}

int FormHeadingLayout::heightOfRows(int width) const
{
    const auto* const area = static_cast<const QScrollArea*>(widgetOf(scrollArea));
    const QWidget* const rows = area ? area->widget() : nullptr;
    return rows ? rows->heightForWidth(width) : 0;
}

int FormHeadingLayout::heightForWidth(int width) const
{
    return widgetOf(scrollArea) ? arrange({0, 0, width, 0}, false) + heightOfRows(width) : 0;
}

int FormHeadingLayout::minimumHeightForWidth(int width) const
{
    constexpr int leastHeightOfRows = 80;
    return widgetOf(scrollArea)
        ? arrange({0, 0, width, 0}, false) + std::min(leastHeightOfRows, heightOfRows(width))
        : 0;
}

QSize FormHeadingLayout::minimumSize() const
{
    const int width = leastWidth();
    return {width, minimumHeightForWidth(std::max(width, parentWidget()->width()))};
}

QSize FormHeadingLayout::sizeHint() const
{
    const int width = leastWidth();
    return {width, heightForWidth(std::max(width, parentWidget()->width()))};
}

void FormHeadingLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    (void)arrange(rect, true);
}

} // namespace quor::formkit
