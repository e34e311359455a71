// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/InputAnchor.h"

#include <QApplication>
#include <QMouseEvent>

namespace quor::formkit {

InputAnchor::InputAnchor(QWidget& form)
    : QObject(&form)
    , form_(form)
{
    QCoreApplication::instance()->installEventFilter(this);
}

QWidget& InputAnchor::view() const
{
    return view_ && view_->isVisible() && form_.isAncestorOf(view_) ? *view_ : form_;
}

bool InputAnchor::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    const bool isMouse = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease
        || type == QEvent::MouseButtonDblClick;
    const bool isKey = type == QEvent::KeyPress || type == QEvent::KeyRelease;
    if ((!isMouse && !isKey) || !form_.isVisible())
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget)
        return false;
    // An event that a view ignores comes again for each view around it. The first one counts.
    if (isMouse) {
        const QPoint place = static_cast<QMouseEvent*>(event)->position().toPoint();
        auto* hit = widget->childAt(place);
        view_ = inForm(hit ? hit : widget);
    } else {
        auto* focused = QApplication::focusWidget();
        view_ = inForm(focused ? focused : widget);
    }
    return false;
}

// Menus and lists that open from a control are windows of their own below it.
QWidget* InputAnchor::inForm(QWidget* view) const
{
    while (view && view != &form_ && !form_.isAncestorOf(view))
        view = view->parentWidget();
    return view == &form_ ? nullptr : view;
}

} // namespace quor::formkit
