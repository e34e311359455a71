// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace quor::platform {

class ViewController;

/// Shows and removes the view of a presented controller, each with an animation of its own.
///
/// Each function must do the whole change even if nothing is animated, and returns at once. It may keep both
/// controllers alive until the animation has ended. Main thread only.
class ViewControllerPresentationAnimator {
public:
    virtual ~ViewControllerPresentationAnimator() = default;

    /// Makes the view of `controller` visible in the view of `presenter`.
    virtual void animatePresentation(
        const std::shared_ptr<ViewController>& controller, ViewController& presenter)
        = 0;
    /// Takes the view of `controller` out of the view of `presenter`. The animator is destroyed after this
    /// returns.
    virtual void animateDismissal(
        const std::shared_ptr<ViewController>& controller, ViewController& presenter)
        = 0;
};

} // namespace quor::platform
