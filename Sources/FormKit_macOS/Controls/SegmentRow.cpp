// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/SegmentRow.h"

#include "FormKit_macOS/Controls/RowStep.h"
#include "FormKit_macOS/Controls/ScaledFont.h"
#include "FormKit_macOS/Controls/Segment.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>

#include <algorithm>

namespace quor::formkit {

SegmentRow::SegmentRow(QWidget* parent)
    : QWidget(parent)
    , layout_(new QHBoxLayout(this))
{
    setFocusPolicy(Qt::StrongFocus);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(0);
    layout_->addStretch(1);
}

void SegmentRow::setTitles(const QStringList& titles)
{
    for (auto* const segment : segments_) {
        segment->hide();
        segment->setParent(nullptr); // also takes it out of the layout
        segment->deleteLater(); // it may be emitting its click
    }
    segments_.clear();
    const int count = static_cast<int>(titles.size());
    for (int index = 0; index < count; ++index) {
        auto* const segment
            = new Segment(titles[index], {.before = index > 0, .after = index < count - 1}, this);
        keepFontScaled(*segment, *this, smallFontFactor);
        connect(segment, &QAbstractButton::clicked, this, [this, index] { click(index); });
        layout_->insertWidget(index, segment);
        segments_.push_back(segment);
    }
    // The arrow keys go on from the same segment.
    setCurrent(std::clamp(current_, 0, std::max(count - 1, 0)));
}

void SegmentRow::select(const std::function<bool(int segment)>& isSelected)
{
    for (int index = 0; index < segmentCount(); ++index)
        segments_[static_cast<std::size_t>(index)]->setChecked(isSelected(index));
    if (!hasFocus())
        setCurrent(std::max(selectedSegment(), 0));
}

int SegmentRow::selectedSegment() const
{
    const auto isChecked = [](const Segment* segment) { return segment->isChecked(); };
    if (current_ < segmentCount() && isChecked(segments_[static_cast<std::size_t>(current_)]))
        return current_;
    const auto first = std::find_if(segments_.begin(), segments_.end(), isChecked);
    return first == segments_.end() ? -1 : static_cast<int>(first - segments_.begin());
}

QRect SegmentRow::segmentRect(int segment) const
{
    if (segment < 0 || segment >= segmentCount())
        return {};
    return segments_[static_cast<std::size_t>(segment)]->geometry();
}

void SegmentRow::setCurrent(int segment)
{
    current_ = segment;
    for (int index = 0; index < segmentCount(); ++index)
        segments_[static_cast<std::size_t>(index)]->setCurrent(hasFocus() && index == segment);
    if (hasFocus() && segment < segmentCount()) {
        QAccessibleEvent event(segments_[static_cast<std::size_t>(segment)], QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void SegmentRow::click(int segment)
{
    setCurrent(segment);
    Q_EMIT segmentClicked(segment);
}

void SegmentRow::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    setCurrent(current_);
}

void SegmentRow::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    setCurrent(current_);
}

void SegmentRow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) {
        if (current_ < segmentCount() && !event->isAutoRepeat())
            click(current_);
        return;
    }
    const auto next = stepInRow(event->key(), current_, segmentCount(), layoutDirection());
    if (!next)
        QWidget::keyPressEvent(event);
    if (!next || *next == current_)
        return;
    if (isExclusive_)
        click(*next);
    else
        setCurrent(*next);
}

} // namespace quor::formkit
