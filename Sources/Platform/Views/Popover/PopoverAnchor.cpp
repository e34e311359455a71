// SPDX-License-Identifier: MIT
#include "Platform/Views/Popover/PopoverAnchor.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace quor::platform {

namespace {

// The part of `rect` in `limits`; at least one pixel of the edge that is nearest.
QRect clipped(const QRect& rect, const QRect& limits)
{
    const auto within
        = [](int value, int first, int last) { return std::clamp(value, first, std::max(first, last)); };
    return {QPoint(within(rect.left(), limits.left(), limits.right()),
                within(rect.top(), limits.top(), limits.bottom())),
        QPoint(within(rect.right(), limits.left(), limits.right()),
            within(rect.bottom(), limits.top(), limits.bottom()))};
}

} // namespace

PopoverAnchor::PopoverAnchor(QWidget& view, const QRect& rect)
    : view_(&view)
    , window_(view.window())
{
    if (rect != view.rect())
        rect_ = rect;
    connect(&view, &QObject::destroyed, this, &PopoverAnchor::checkLater);
    // At once, since the popover's window ends together with this one.
    connect(window_, &QObject::destroyed, this, [this] { lost(); });
    watchAncestors();
}

QRect PopoverAnchor::onScreen() const
{
    if (!view_)
        return {};
    QRect rect = rect_.value_or(view_->rect());
    const QWidget* widget = view_;
    for (; !widget->isWindow(); widget = widget->parentWidget())
        rect = clipped(rect, widget->rect()).translated(widget->pos());
    return clipped(rect, widget->rect()).translated(widget->mapToGlobal(QPoint()));
}

bool PopoverAnchor::viewContains(QPoint point) const
{
    return view_ && view_->rect().contains(view_->mapFromGlobal(point));
}

void PopoverAnchor::watchAncestors()
{
    for (const auto& widget : watched_)
        if (widget)
            widget->removeEventFilter(this);
    watched_.clear();
    for (QWidget* widget = view_; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        widget->installEventFilter(this);
        watched_.emplace_back(widget);
    }
}

bool PopoverAnchor::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
        watchAncestors();
        checkLater();
        break;
    case QEvent::Hide:
        if (watched == window_ && !window_->isVisible())
            lost();
        else
            checkLater();
        break;
    case QEvent::Move:
    case QEvent::Resize:
        checkLater();
        break;
    default:
        break;
    }
    return false;
}

void PopoverAnchor::checkLater()
{
    // Later, since a layout or a move to another parent and back makes many such events.
    if (!std::exchange(willCheck_, true))
        QMetaObject::invokeMethod(this, &PopoverAnchor::check, Qt::QueuedConnection);
}

void PopoverAnchor::check()
{
    willCheck_ = false;
    if (!view_ || !view_->isVisible() || view_->window() != window_)
        lost();
    else
        moved();
}

} // namespace quor::platform
