// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Rendering/FormKeyboardLoop.h"

#include "Platform/Views/KeyboardAccess.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVariant>
#include <QWidget>

#include <algorithm>

namespace quor::formkit {

namespace {

/// Set on a control that does not accept Tab because of `platform::setFullKeyboardAccessEnabled(false)`.
constexpr auto tabTakenProperty = "quorTabTaken";

bool isTabTaken(const QWidget& widget)
{
    return widget.dynamicPropertyNames().contains(tabTakenProperty);
}

bool acceptsTab(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) != 0;
}

void setAcceptsTab(QWidget& control, bool accepts)
{
    if (acceptsTab(control) == accepts)
        return;
    const int policy = control.focusPolicy();
    control.setFocusPolicy(Qt::FocusPolicy(accepts ? policy | Qt::TabFocus : policy & ~int(Qt::TabFocus)));
    control.setProperty(tabTakenProperty, accepts ? QVariant() : QVariant(true));
}

bool isControl(const QWidget& widget)
{
    // What a control is made of has the control as its proxy.
    if (widget.focusProxy())
        return false;
    return acceptsTab(widget) || isTabTaken(widget);
}

bool changesByWheel(const QWidget& widget)
{
    if (qobject_cast<const QAbstractSlider*>(&widget))
        return !qobject_cast<const QScrollBar*>(&widget);
    return qobject_cast<const QAbstractSpinBox*>(&widget) || qobject_cast<const QComboBox*>(&widget);
}

/// Whether `next` comes right after `control` on the way of the Tab key.
bool isFollowedBy(const QWidget& control, const QWidget& next)
{
    const QWidget* widget = control.nextInFocusChain();
    while (widget && widget != &next && widget != &control && (!acceptsTab(*widget) || widget->focusProxy()))
        widget = widget->nextInFocusChain();
    return widget == &next;
}

bool isByKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
}

void scrollIntoView(QWidget& control)
{
    constexpr int margin = 20;
    for (QWidget* parent = control.parentWidget(); parent; parent = parent->parentWidget()) {
        auto* const area = qobject_cast<QScrollArea*>(parent);
        if (!area || !area->widget())
            continue;
        const QPoint middle = control.mapTo(area->widget(), control.rect().center());
        const int reach = control.height() / 2 + 1 + margin;
        if (2 * reach > area->viewport()->height())
            area->ensureWidgetVisible(&control, margin, margin); // where its caret is
        else
            area->ensureVisible(middle.x(), middle.y(), 0, reach);
    }
}

} // namespace

void FormKeyboardLoop::build(QWidget& container, const std::vector<Row>& rows)
{
    const bool isFull = platform::isFullKeyboardAccessEnabled();
    focusableViews_.clear();
    QWidget* last = &container;
    const auto append = [&](QWidget& control) {
        if (!isFollowedBy(*last, control))
            QWidget::setTabOrder(last, &control);
        last = &control;
    };
    std::vector<QWidget*> controls;
    for (const Row& row : rows) {
        for (QWidget* const focusable : row.focusableViews) {
            if (!focusable || !container.isAncestorOf(focusable))
                continue;
            if (isTabTaken(*focusable))
                setAcceptsTab(*focusable, true); // its element lists it only now
            focusableViews_.emplace_back(focusable);
            append(*focusable);
        }
        controls.clear();
        for (QWidget* const view : row.views) {
            if (view)
                collect(*view, row.focusableViews, controls);
        }
        for (QWidget* const control : controls) {
            setAcceptsTab(*control, isFull);
            append(*control);
        }
    }
}

void FormKeyboardLoop::collect(QWidget& view, const Views& focusableViews, std::vector<QWidget*>& controls)
{
    if (changesByWheel(view) || isControl(view)) {
        watch(view);
        const bool isListed
            = std::find(focusableViews.begin(), focusableViews.end(), &view) != focusableViews.end();
        if (!isListed && isControl(view))
            controls.push_back(&view);
    }
    for (QObject* const child : view.children()) {
        if (auto* const widget = qobject_cast<QWidget*>(child); widget && !widget->isWindow())
            collect(*widget, focusableViews, controls);
    }
}

void FormKeyboardLoop::watch(QWidget& control)
{
    control.installEventFilter(this);
    // Else the wheel would focus the control, and then change it.
    if (control.focusPolicy() == Qt::WheelFocus)
        control.setFocusPolicy(Qt::StrongFocus);
}

bool FormKeyboardLoop::eventFilter(QObject* watched, QEvent* event)
{
    auto* const control = qobject_cast<QWidget*>(watched);
    if (!control)
        return false;
    if (event->type() == QEvent::Wheel && !control->hasFocus() && changesByWheel(*control)) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::FocusIn && isByKeyboard(static_cast<QFocusEvent*>(event)->reason()))
        scrollIntoView(*control);
    return false;
}

QWidget* FormKeyboardLoop::firstFocusableView() const
{
    const auto found
        = std::find_if(focusableViews_.begin(), focusableViews_.end(), [](const QPointer<QWidget>& view) {
              return view && view->isEnabled() && !view->isHidden() && view->focusPolicy() != Qt::NoFocus;
          });
    return found == focusableViews_.end() ? nullptr : found->data();
}

} // namespace quor::formkit
