// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormContainerViewControllerPresentationAnimator.h"

#include "FormKit_macOS/Presentation/FormRenderViewController.h"
#include "FormKit_macOS/Presentation/FormSlide.h"
#include "Platform/Views/Animation.h"

#include <QWidget>

#include <chrono>

namespace quor::formkit {

namespace {

constexpr std::chrono::milliseconds slideDuration{250};

// The direction in which the user's script is read.
FormSlide::Direction forwards(const QWidget& view)
{
    return view.isRightToLeft() ? FormSlide::Direction::toRight : FormSlide::Direction::toLeft;
}

FormSlide::Direction backwards(const QWidget& view)
{
    return view.isRightToLeft() ? FormSlide::Direction::toLeft : FormSlide::Direction::toRight;
}

void takeOut(platform::ViewController& controller)
{
    if (auto* view = controller.viewIfLoaded()) {
        view->hide();
        view->setParent(nullptr);
    }
    controller.removeFromParent();
}

} // namespace

void placeChild(const std::shared_ptr<platform::ViewController>& child, platform::ViewController& parent)
{
    QWidget& view = child->view();
    parent.addChild(child);
    view.setParent(&parent.view());
    view.setGeometry(parent.view().rect());
}

FormContainerViewControllerPresentationAnimator::FormContainerViewControllerPresentationAnimator(
    FormSlide& slide, const platform::Appearance& appearance)
    : slide_(slide)
    , appearance_(appearance)
{
}

void FormContainerViewControllerPresentationAnimator::animatePresentation(
    const std::shared_ptr<platform::ViewController>& controller, platform::ViewController& presenter)
{
    const auto previous = previousController.lock();
    placeChild(controller, presenter);
    if (!previous) {
        controller->view().show();
        presentSizeUpdate();
        return;
    }
    slide_.start(previous->view(), controller->view(), forwards(presenter.view()),
        platform::animationDuration(appearance_, presenter.view(), slideDuration),
        [previous = previousController, sizeUpdate = presentSizeUpdate] {
            if (const auto covered = previous.lock())
                takeOut(*covered);
            sizeUpdate();
        });
}

void FormContainerViewControllerPresentationAnimator::animateDismissal(
    const std::shared_ptr<platform::ViewController>& controller, platform::ViewController& presenter)
{
    const auto previous = previousController.lock();
    if (!previous) {
        takeOut(*controller);
        dismissSizeUpdate();
        return;
    }
    placeChild(previous, presenter);
    slide_.start(controller->view(), previous->view(), backwards(presenter.view()),
        platform::animationDuration(appearance_, presenter.view(), slideDuration),
        [controller, sizeUpdate = dismissSizeUpdate] {
            takeOut(*controller);
            sizeUpdate();
        });
}

} // namespace quor::formkit
