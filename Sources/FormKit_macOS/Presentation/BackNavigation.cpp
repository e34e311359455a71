// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/BackNavigation.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace quor::formkit {

namespace {

bool isBackKey(const QEvent& event)
{
    const auto& key = static_cast<const QKeyEvent&>(event);
    return (key.key() == Qt::Key_Left
               && (key.modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier) // arrows can count as keypad
        || (key.key() == Qt::Key_Back && key.modifiers() == Qt::NoModifier);
}

bool isBackButton(const QEvent& event)
{
    return static_cast<const QMouseEvent&>(event).button() == Qt::BackButton;
}

} // namespace

BackNavigation::BackNavigation(QWidget& view, std::function<void()> goBack)
    : view_(&view)
    , goBack_(std::move(goBack))
{
    // On the application, since text fields and scrolling views use up these events.
    QCoreApplication::instance()->installEventFilter(this);
}

bool BackNavigation::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    const bool isKey = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
    const bool isButton = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!isKey && !isButton)
        return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || !view_ || (widget != view_ && !view_->isAncestorOf(widget)))
        return false;
    if (isKey ? !isBackKey(*event) : !isBackButton(*event))
        return false;
    event->accept(); // keeps a shortcut of the window from being used instead
    if (type == QEvent::ShortcutOverride)
        return true;
    const auto goBack = goBack_;
    goBack();
    return true;
}

} // namespace quor::formkit
