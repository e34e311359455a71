// SPDX-License-Identifier: MIT
#include "Platform/Views/Popover.h"

#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Views/Animation.h"
#include "Platform/Views/Popover/PopoverPlacement.h"
#include "Platform/Views/Popover/PopoverWindow.h"
#include "Platform/Views/ViewController.h"

#include <QWidget>

#include <utility>

namespace quor::platform {

namespace {

constexpr std::chrono::milliseconds fadeDuration{120};
constexpr std::chrono::milliseconds resizeDuration{180};

// Edges are those of a left-to-right layout.
RectEdge mirrored(RectEdge edge, const QWidget& view)
{
    return view.isRightToLeft() && isVertical(edge) ? oppositeEdge(edge) : edge;
}

} // namespace

bool PopoverDelegate::popoverShouldClose(Popover&)
{
    return true;
}

bool PopoverDelegate::popoverShouldDetach(Popover&)
{
    return false;
}

void PopoverDelegate::popoverDidClose(Popover&) { }

Popover::Popover(WindowServer& windowServer, const Appearance& appearance)
    : windowServer_(windowServer)
    , appearance_(appearance)
{
}

Popover::~Popover()
{
    discardWindow();
}

bool Popover::isWindowOfPopover(const QWidget& window)
{
    return qobject_cast<const PopoverWindow*>(&window);
}

void Popover::setContentViewController(std::shared_ptr<ViewController> controller)
{
    content_ = std::move(controller);
    contentSize_.reset();
}

QSize Popover::contentSize() const
{
    if (contentSize_ || !content_)
        return contentSize_.value_or(QSize());
    const QWidget& view = content_->view();
    const QSize hint = view.sizeHint().expandedTo(view.minimumSizeHint());
    return hint.isValid() ? hint : view.size();
}

void Popover::setContentSize(QSize size)
{
    contentSize_ = size;
    if (window_)
        window_->setContentSize(size, durationOf(resizeDuration, *window_));
}

void Popover::show(const QRect& anchor, QWidget& view, RectEdge preferredEdge)
{
    if (!content_ || !view.isVisible())
        return;
    if (window_ && (window_->isDetached() || window_->parentWidget() != view.window()))
        discardWindow();
    const RectEdge edge = mirrored(preferredEdge, view);
    if (window_) {
        window_->setAnchor(view, anchor, edge);
        return;
    }
    // The content's view is made before the window, as a hook of its controller can end this popover.
    const auto self = TrackedPointer(this);
    const auto content = content_;
    const QPointer<QWidget> anchorView = &view;
    QWidget& contentView = content->view();
    if (!self.get() || !anchorView || !anchorView->isVisible())
        return;
    window_ = new PopoverWindow(windowServer_, contentView, view);
    connectWindow();
    // Asked for only now, as the margins of a view depend on whether it is a window.
    window_->setContentSize(contentSize(), {});
    window_->setAnchor(view, anchor, edge);
    const QPointer<PopoverWindow> window = window_;
    window->open(durationOf(fadeDuration, *window));
}

void Popover::connectWindow()
{
    window_->closeRequested = whileAlive(*this, [this] { performClose(); });
    window_->anchorLost = whileAlive(*this, [this] { close(); });
    window_->userTurnedAway = whileAlive(*this, [this](PopoverExit exit) {
        const bool closes = behavior_ == Behavior::transient
            || (behavior_ == Behavior::semitransient && exit == PopoverExit::anchorWindow);
        if (closes)
            performClose();
    });
    window_->cancelContent = whileAlive(*this, [content = content_] { return content->performCancel(); });
    window_->mayDetach
        = whileAlive(*this, [this] { return delegate_ && delegate_->popoverShouldDetach(*this); });
}

std::chrono::milliseconds Popover::durationOf(std::chrono::milliseconds wanted, const QWidget& view) const
{
    return animates_ ? animationDuration(appearance_, view, wanted) : std::chrono::milliseconds::zero();
}

void Popover::close()
{
    if (!window_)
        return;
    discardWindow();
    if (delegate_)
        delegate_->popoverDidClose(*this);
}

bool Popover::performClose()
{
    if (!window_)
        return false;
    const auto self = TrackedPointer(this);
    if (delegate_ && !delegate_->popoverShouldClose(*this))
        return false;
    if (self.get())
        close();
    return true;
}

void Popover::discardWindow()
{
    const auto window = std::exchange(window_, nullptr);
    if (window)
        window->discard();
}

bool Popover::isShown() const
{
    return window_;
}

bool Popover::isDetached() const
{
    return window_ && window_->isDetached();
}

QWidget* Popover::window() const
{
    return window_;
}

} // namespace quor::platform
