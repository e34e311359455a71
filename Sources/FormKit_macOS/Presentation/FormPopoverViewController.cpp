// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormPopoverViewController.h"

#include "FormKit/Form.h"
#include "FormKit_macOS/Controls/SegmentedControl.h"
#include "FormKit_macOS/Presentation/FormContainerViewController.h"
#include "FormKit_macOS/Presentation/FormPopover.h"
#include "Platform/Services/Application.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace quor::formkit {

namespace {

bool showFormsOfSameClass(const platform::ViewController& left, const platform::ViewController& right)
{
    const auto* leftContainer = dynamic_cast<const FormContainerViewController*>(&left);
    const auto* rightContainer = dynamic_cast<const FormContainerViewController*>(&right);
    if (!leftContainer || !rightContainer)
        return false;
    const Form& leftForm = *leftContainer->form();
    const Form& rightForm = *rightContainer->form();
    return typeid(leftForm) == typeid(rightForm);
}

struct Anchor {
    QWidget& view;
    QRect rect;
};

// A press on a segmented control hits a segment in it.
Anchor anchorOf(QWidget& view)
{
    for (auto* around = &view; around; around = around->isWindow() ? nullptr : around->parentWidget()) {
        const auto* control = dynamic_cast<const SegmentedControl*>(around);
        if (!control)
            continue;
        const QRect segment = control->segmentRect(std::max(control->selectedSegment(), 0));
        return {*around, segment.isEmpty() ? around->rect() : segment};
    }
    return {view, view.rect()};
}

} // namespace

FormPopoverViewController::FormPopoverViewController(FormServices services)
    : services_(services)
{
}

FormPopoverViewController::~FormPopoverViewController()
{
    closePopover();
}

void FormPopoverViewController::present(std::shared_ptr<platform::ViewController> controller, QWidget& view,
    bool isImportant, platform::RectEdge preferredEdge)
{
    const QPointer<FormPopoverViewController> self = this;
    const QPointer<QWidget> anchor = &view;
    const bool isShown = viewIfLoaded() && viewIfLoaded()->isVisible();
    if (isShown && !QApplication::activeWindow())
        services_.application.activate(*viewIfLoaded()->window());
    if (const auto presented = presentedControllers(); !presented.empty())
        dismiss(*presented.front());
    if (!self || !controller)
        return;
    if (activePopover_ && showFormsOfSameClass(*activePopover_->contentViewController(), *controller)) {
        activePopover_->close();
        return;
    }
    if (!isShown)
        return;
    closePopover();
    if (self && anchor)
        open(std::move(controller), *anchor, isImportant, preferredEdge);
}

void FormPopoverViewController::open(std::shared_ptr<platform::ViewController> controller, QWidget& view,
    bool isImportant, platform::RectEdge preferredEdge)
{
    activePopover_ = std::make_unique<FormPopover>(services_.windowServer, services_.appearance);
    activePopover_->setImportant(isImportant);
    activePopover_->setBehavior(platform::Popover::Behavior::semitransient);
    activePopover_->setDelegate(this);
    activePopover_->setContentViewController(std::move(controller));
    const platform::TrackedPointer<FormPopover> popover(activePopover_.get());
    const auto anchor = anchorOf(view);
    activePopover_->show(anchor.rect, anchor.view, preferredEdge);
    // The content may close the popover before it is shown, and may end this controller.
    if (popover.get() && !popover.get()->isShown())
        closePopover();
}

void FormPopoverViewController::closePopover()
{
    if (const auto popover = std::move(activePopover_)) {
        popover->setDelegate(nullptr);
        popover->close();
    }
}

bool FormPopoverViewController::shouldClose(const platform::Popover& popover) const
{
    const auto* formPopover = dynamic_cast<const FormPopover*>(&popover);
    return (formPopover && !formPopover->isImportant()) || popover.isDetached();
}

void FormPopoverViewController::popoverDidClose(platform::Popover& popover)
{
    if (&popover != activePopover_.get())
        return;
    const auto closed = std::move(activePopover_);
    const auto controller = closed->contentViewController();
    popoverClosed(*controller);
}

void FormPopoverViewController::popoverClosed(platform::ViewController&) { }

} // namespace quor::formkit
