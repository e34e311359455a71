// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/SideBySide.h"

#include "FormKit_macOS/Rendering/ReleaseWidget.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace quor::formkit {

namespace {

constexpr int spacing = 8;

int heightOf(const QWidget& view, int width)
{
    const int height = view.hasHeightForWidth() ? view.heightForWidth(width) : view.sizeHint().height();
    return std::clamp(height, view.minimumHeight(), std::max(view.minimumHeight(), view.maximumHeight()));
}

/// At the size that `view` will have.
int baselineOf(QWidget& view, QSize size)
{
    const QSize before = view.size();
    view.resize(size);
    const int baseline = firstBaseline(view).value_or(0);
    view.resize(before);
    return baseline;
}

} // namespace

SideBySide::~SideBySide()
{
    setViews(nullptr, nullptr);
}

void SideBySide::setViews(QWidget* left, QWidget* right)
{
    const auto former = std::exchange(views_, {left, right});
    for (const auto& view : former) {
        if (view && view != left && view != right)
            releaseWidget(*view, this);
    }
    for (const auto& view : views_) {
        if (!view || view->parentWidget() == this)
            continue;
        const bool isHidden = view->isHidden() && view->testAttribute(Qt::WA_WState_ExplicitShowHide);
        view->setParent(this);
        view->setHidden(isHidden);
    }
    updateGeometry();
    place();
}

std::vector<SideBySide::Part> SideBySide::parts(int width) const
{
    std::vector<Part> parts;
    int hints = 0;
    for (const auto& view : views_) {
        if (!view || view->isHidden())
            continue;
        parts.push_back({view, std::max(1, view->sizeHint().width()), 0, 0});
        hints += parts.back().width;
    }
    int room = std::max(0, width - spacing * int(parts.size() - 1));
    for (Part& part : parts) {
        const int hint = std::exchange(part.width, room * part.width / hints);
        room -= part.width;
        hints = std::max(1, hints - hint);
        part.height = heightOf(*part.view, part.width);
        part.baseline = baselineOf(*part.view, {part.width, part.height});
    }
    return parts;
}

int SideBySide::firstBaseline() const
{
    int baseline = 0;
    for (const Part& part : parts(width()))
        baseline = std::max(baseline, part.baseline);
    return baseline;
}

int SideBySide::heightForWidth(int width) const
{
    int above = 0;
    int below = 0;
    for (const Part& part : parts(width)) {
        above = std::max(above, part.baseline);
        below = std::max(below, part.height - part.baseline);
    }
    return above + below;
}

QSize SideBySide::sizeHint() const
{
    int width = 0;
    for (const auto& view : views_) {
        if (view && !view->isHidden())
            width += (width > 0 ? spacing : 0) + view->sizeHint().width();
    }
    return {width, heightForWidth(width)};
}

QSize SideBySide::minimumSizeHint() const
{
    int width = 0;
    for (const auto& view : views_) {
        if (view && !view->isHidden())
            width += (width > 0 ? spacing : 0)
                + std::max(view->minimumSizeHint().width(), view->minimumWidth());
    }
    return {width, 0};
}

void SideBySide::place()
{
    const auto parts = this->parts(width());
    int baseline = 0;
    for (const Part& part : parts)
        baseline = std::max(baseline, part.baseline);
    int left = 0;
    for (const Part& part : parts) {
        const QRect place(left, baseline - part.baseline, part.width, part.height);
        part.view->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
        left += part.width + spacing;
    }
}

bool SideBySide::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::LayoutDirectionChange) {
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

void SideBySide::resizeEvent(QResizeEvent*)
{
    place();
}

} // namespace quor::formkit
