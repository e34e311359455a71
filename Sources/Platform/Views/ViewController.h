// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/ViewControllerPresentationAnimator.h"
#include "Platform/Views/WidgetHandle.h"

#include <QObject>

#include <memory>
#include <vector>

class QKeyEvent;

namespace quor::platform {

/// An object that owns a view and takes part in its life: it makes the view on first use, and is called when
/// the view appears and when it has been laid out. Each of the functions that are called may end the
/// controller.
///
/// Controllers form trees: a controller owns its children, whose views it places in its own view. Hold
/// controllers in a `std::shared_ptr`. Main thread only.
class ViewController : public QObject {
    Q_OBJECT

public:
    ViewController();
    ~ViewController() override;

    /// The view, owned by this controller also while it has a parent. The first call makes it: `loadView`,
    /// then `viewDidLoad`. If a parent deleted the view, the next call makes a new one in the same way.
    [[nodiscard]] QWidget& view();
    /// Null before the first call of `view`, or if a parent deleted the view.
    [[nodiscard]] QWidget* viewIfLoaded() const { return view_.get(); }

    [[nodiscard]] const std::vector<std::shared_ptr<ViewController>>& children() const { return children_; }
    /// Null for a controller that is no child.
    [[nodiscard]] ViewController* parentController() const { return parent_; }
    /// Makes `child` the last child of this controller, and takes it from its former parent. Does not place
    /// its view. `child` must be neither this controller nor one of its ancestors.
    void addChild(std::shared_ptr<ViewController> child);
    /// Leaves the parent, which thereby gives up its ownership. The view stays where it is.
    void removeFromParent();

    /// The controllers that this one has presented and not yet dismissed, the first one first.
    [[nodiscard]] std::vector<std::shared_ptr<ViewController>> presentedControllers() const;
    /// Owns `controller` and `animator` until `controller` is dismissed, and has the animator show it.
    void present(std::shared_ptr<ViewController> controller,
        std::unique_ptr<ViewControllerPresentationAnimator> animator);
    /// Has the animator with which `controller` was presented remove it. Ignored if this controller has not
    /// presented it. The animator keeps `controller` alive as long as its view is shown.
    void dismiss(ViewController& controller);

    /// Does what the Escape key does while no view in this controller's view has the keyboard: calls
    /// `cancelOperation` of the children whose views are visible, the last one first and each after its own
    /// children, and then of this controller, until one had an effect. Returns whether one had.
    bool performCancel();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// Returns a new view; an empty one in this class.
    [[nodiscard]] virtual std::unique_ptr<QWidget> loadView();
    /// Called once for each view, after it was made.
    virtual void viewDidLoad() { }
    /// Called each time before the view becomes visible in a window.
    virtual void viewWillAppear() { }
    /// Called from the event loop after the view has become visible, if it still is.
    virtual void viewDidAppear() { }
    /// Called after each layout pass of the view while it is visible: as it becomes visible, after a change
    /// of its size, and after its layout has placed the views in it again.
    virtual void viewDidLayout() { }
    /// Called for the Escape key if no view in this controller's view used it, nor the view itself. Returns
    /// whether it had an effect; if not, the parent controller is called.
    virtual bool cancelOperation() { return false; }

private:
    struct Presented {
        std::shared_ptr<ViewController> controller;
        std::shared_ptr<ViewControllerPresentationAnimator> animator;
    };

    void viewShown();
    bool keyReachedView(QKeyEvent& event);

    WidgetHandle<QWidget> view_;
    std::vector<std::shared_ptr<ViewController>> children_;
    ViewController* parent_ = nullptr;
    std::vector<Presented> presented_;
    bool isAppearing_ = false; ///< Whether a call of `viewDidAppear` waits in the event loop.
};

} // namespace quor::platform
