// SPDX-License-Identifier: MIT
#include "Platform/Views/Popover/PopoverDismissal.h"

#include "Platform/Views/Popover/PopoverAnchor.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <chrono>
#include <utility>

namespace quor::platform {

namespace {

// Window managers give a window the keyboard before they let it have the press that made them do so.
constexpr std::chrono::milliseconds pressAfterKeyboard{300};

// The application sees a press once for each view that ignores it. The first one is the one under the
// pointer.
bool isUnderPointer(const QWidget& view, QPoint place)
{
    const QWidget& window = *view.window();
    const QWidget* deepest = window.childAt(window.mapFromGlobal(place));
    return deepest ? deepest == &view : &view == &window;
}

} // namespace

PopoverDismissal::PopoverDismissal(const QWidget& window, const PopoverAnchor& anchor)
    : window_(window)
    , anchor_(anchor)
{
    pressOnAnchorLimit_.setSingleShot(true);
    pressOnAnchorLimit_.setInterval(pressAfterKeyboard);
    connect(&pressOnAnchorLimit_, &QTimer::timeout, this, [this] {
        if (!isAnchorPressed_ && !hadKeyboard_)
            userTurnedAway(PopoverExit::elsewhere);
    });
    // Later, as the keyboard can be on its way from one window of the popover to another.
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &PopoverDismissal::followKeyboard,
        Qt::QueuedConnection);
    qApp->installEventFilter(this);
}

bool PopoverDismissal::eventFilter(QObject* watched, QEvent* event)
{
    const bool isPress
        = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if ((!isPress && event->type() != QEvent::MouseButtonRelease) || !watched->isWidgetType())
        return false;
    if (!isPress) {
        released();
        return false;
    }
    const QPointer<QWidget> view = static_cast<QWidget*>(watched);
    const QPoint place = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
    if (isUnderPointer(*view, place))
        pressed(*view, place);
    return !view;
}

bool PopoverDismissal::belongsToPopover(const QWidget& widget) const
{
    for (const QWidget* window = widget.window(); window;) {
        if (window == &window_)
            return true;
        const QWidget* parent = window->parentWidget();
        window = parent ? parent->window() : nullptr;
    }
    return false;
}

void PopoverDismissal::pressed(const QWidget& view, QPoint place)
{
    const QWidget& window = *view.window();
    // A menu closes by itself.
    if (window.windowType() == Qt::Popup || belongsToPopover(window))
        return;
    const bool isAnchorWindow = &window == anchor_.window();
    isAnchorPressed_ = isAnchorWindow && anchor_.viewContains(place);
    if (!isAnchorPressed_)
        userTurnedAway(isAnchorWindow ? PopoverExit::anchorWindow : PopoverExit::elsewhere);
}

void PopoverDismissal::released()
{
    if (!std::exchange(isAnchorPressed_, false))
        return;
    const auto report = [this] { userTurnedAway(PopoverExit::anchorWindow); };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

void PopoverDismissal::followKeyboard()
{
    const QWidget* active = QApplication::activeWindow();
    if (active && belongsToPopover(*active)) {
        hadKeyboard_ = true;
        return;
    }
    if (isAnchorPressed_ || !std::exchange(hadKeyboard_, false))
        return;
    if (active && active == anchor_.window() && anchor_.viewContains(QCursor::pos()))
        pressOnAnchorLimit_.start();
    else
        userTurnedAway(PopoverExit::elsewhere);
}

} // namespace quor::platform
