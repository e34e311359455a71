// SPDX-License-Identifier: MIT
#include "Platform/Views/ViewController.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace quor::platform {

ViewController::ViewController() = default;

ViewController::~ViewController()
{
    // The end of the view must reach no hook of an object that is half gone.
    if (view_)
        view_->removeEventFilter(this);
    for (const auto& child : children_)
        child->parent_ = nullptr;
}

QWidget& ViewController::view()
{
    if (view_)
        return *view_;
    view_ = WidgetHandle<QWidget>(loadView());
    view_->installEventFilter(this);
    // The hook may end this object. The view is deleted later than that.
    QWidget& made = *view_;
    viewDidLoad();
    return made;
}

std::unique_ptr<QWidget> ViewController::loadView()
{
    return std::make_unique<QWidget>();
}

void ViewController::addChild(std::shared_ptr<ViewController> child)
{
    child->removeFromParent();
    child->parent_ = this;
    children_.push_back(std::move(child));
}

void ViewController::removeFromParent()
{
    auto* parent = std::exchange(parent_, nullptr);
    if (!parent)
        return;
    const auto found = std::ranges::find(parent->children_, this, &std::shared_ptr<ViewController>::get);
    // Can be the last owner of this object, which then ends on return.
    const auto self = std::move(*found);
    parent->children_.erase(found);
}

std::vector<std::shared_ptr<ViewController>> ViewController::presentedControllers() const
{
    std::vector<std::shared_ptr<ViewController>> controllers(presented_.size());
    std::ranges::transform(presented_, controllers.begin(), &Presented::controller);
    return controllers;
}

void ViewController::present(
    std::shared_ptr<ViewController> controller, std::unique_ptr<ViewControllerPresentationAnimator> animator)
{
    // A copy, since the animator may dismiss the controller, or end this object.
    const Presented presented{std::move(controller), std::move(animator)};
    presented_.push_back(presented);
    presented.animator->animatePresentation(presented.controller, *this);
}

void ViewController::dismiss(ViewController& controller)
{
    const auto isIt = [&](const Presented& presented) { return presented.controller.get() == &controller; };
    const auto found = std::ranges::find_if(presented_, isIt);
    if (found == presented_.end())
        return;
    const Presented dismissed = std::move(*found);
    presented_.erase(found);
    dismissed.animator->animateDismissal(dismissed.controller, *this);
}

bool ViewController::performCancel()
{
    const QPointer<ViewController> self = this;
    // A copy, since a hook may change the children.
    const std::vector lastFirst(children_.rbegin(), children_.rend());
    for (const auto& child : lastFirst) {
        const auto* childView = child->viewIfLoaded();
        if (childView && childView->isVisible() && child->performCancel())
            return true;
        if (!self)
            return true;
    }
    return cancelOperation();
}

bool ViewController::eventFilter(QObject* watched, QEvent* event)
{
    if (!view_ || watched != view_.get())
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Show:
        if (!event->spontaneous())
            viewShown();
        return false;
    // A layout of Qt handles these events before the event filters.
    case QEvent::Resize:
    case QEvent::LayoutRequest:
        if (view_->isVisible())
            viewDidLayout();
        return false;
    case QEvent::KeyPress:
        return keyReachedView(*static_cast<QKeyEvent*>(event));
    default:
        return false;
    }
}

void ViewController::viewShown()
{
    const QPointer<ViewController> self = this;
    viewWillAppear();
    if (self)
        viewDidLayout();
    if (!self || std::exchange(isAppearing_, true))
        return;
    const auto appear = [this] {
        isAppearing_ = false;
        if (view_ && view_->isVisible())
            viewDidAppear();
    };
    QMetaObject::invokeMethod(this, appear, Qt::QueuedConnection);
}

bool ViewController::keyReachedView(QKeyEvent& event)
{
    if (!event.matches(QKeySequence::Cancel))
        return false;
    // The view may use the key itself. If it does not, nor this object, Qt passes the key on to the parent of
    // the view, and with that to the parent of this controller.
    static_cast<QObject&>(*view_).event(&event);
    if (!event.isAccepted())
        event.setAccepted(cancelOperation());
    return true;
}

} // namespace quor::platform
