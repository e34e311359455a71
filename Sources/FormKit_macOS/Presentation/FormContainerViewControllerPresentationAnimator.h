// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/ViewControllerPresentationAnimator.h"

#include <functional>
#include <memory>

namespace quor::platform {
class Appearance;
}

namespace quor::formkit {

class FormRenderViewController;
class FormSlide;

/// Slides a form over the one below it in a container, and back, in 0.25 seconds each; at once if the
/// desktop's animations are off. Main thread only.
class FormContainerViewControllerPresentationAnimator final
    : public platform::ViewControllerPresentationAnimator {
public:
    /// Both must outlive the animator, and a slide that is under way must be finished before each use.
    FormContainerViewControllerPresentationAnimator(FormSlide& slide, const platform::Appearance& appearance);

    std::function<void()> presentSizeUpdate; ///< called when the push has ended
    std::function<void()> dismissSizeUpdate; ///< called when the pop has ended
    std::weak_ptr<FormRenderViewController> previousController; ///< the controller that is covered

    void animatePresentation(const std::shared_ptr<platform::ViewController>& controller,
        platform::ViewController& presenter) override;
    void animateDismissal(const std::shared_ptr<platform::ViewController>& controller,
        platform::ViewController& presenter) override;

private:
    FormSlide& slide_;
    const platform::Appearance& appearance_;
};

/// Makes `child` the last child of `parent`, and its view a part of the parent's, as large as that.
void placeChild(const std::shared_ptr<platform::ViewController>& child, platform::ViewController& parent);

} // namespace quor::formkit
