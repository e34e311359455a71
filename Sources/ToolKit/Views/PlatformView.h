// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRect>
#include <QWidget>

#include <atomic>
#include <optional>

class QPainter;

namespace quor::toolkit {

/// The base class of the kit's own views: it turns mouse and layout events into a few hooks, which derived
/// classes override.
///
/// Until `setInteractionEnabled(true)`, mouse events go through the view, and through the views in it, to the
/// widget below. Lengths are device-independent pixels, y grows downwards, and the points passed to hooks are
/// in the view's own coordinates. Main thread only, except `setViewNeedsLayout` and `setViewNeedsRedraw`.
class PlatformView : public QWidget {
    Q_OBJECT

public:
    explicit PlatformView(QWidget* parent = nullptr);

    [[nodiscard]] bool isFlipped() const { return true; }

    /// The object that takes the view's shadow (see `applyLightShadow`): the view itself.
    [[nodiscard]] QWidget& layer() { return *this; }

    /// The painter of the present call of `draw`. Null at any other time.
    [[nodiscard]] QPainter* cgContext() const { return context_; }

    /// A setting for derived classes, which this class does not use. True at first.
    [[nodiscard]] bool isAnimated() const { return isAnimated_; }
    void setAnimated(bool isAnimated) { isAnimated_ = isAnimated; }

    /// Whether the view takes mouse events. False at first. The setter calls `updateTrackingAreas`.
    [[nodiscard]] bool interactionEnabled() const { return interactionEnabled_; }
    void setInteractionEnabled(bool enabled);

    /// The values that were last set; they stay true after the layout and after the drawing. Setting true on
    /// the main thread makes the event loop call `layoutContent` or `draw` later. On any other thread, only
    /// the value is stored.
    [[nodiscard]] bool viewNeedsLayout() const { return viewNeedsLayout_; }
    void setViewNeedsLayout(bool needed);
    [[nodiscard]] bool viewNeedsRedraw() const { return viewNeedsRedraw_; }
    void setViewNeedsRedraw(bool needed);

    /// The rectangle in which the pointer is followed. `nullopt` without interaction.
    [[nodiscard]] const std::optional<QRect>& trackingArea() const { return trackingArea_; }

    /// Follows the pointer in the present bounds, if interaction is enabled. If the view is visible, also
    /// calls `hover` or `hoverEnded` for the pointer's present position, even without interaction. Called by
    /// the view itself when it is moved, resized or shown with interaction enabled.
    virtual void updateTrackingAreas();

protected:
    // A hook that ends its own view has to use `deleteLater`, unless it was called for a press.

    /// Called once, before the first layout, drawing or showing.
    virtual void setup() { }
    /// Draws the view. Not called while the bounds are empty.
    virtual void draw(QPainter& /*context*/) { }
    /// Sets the geometry of the views in this one. Not called while the bounds are empty.
    virtual void layoutContent() { }
    /// The left or the right button was pressed. Called after `hoverEnded`.
    virtual void mouseDown(QPointF /*point*/) { }
    /// The pointer has entered the view or moved in it, also over a widget in the view. Not called while a
    /// button is held.
    virtual void hover(QPointF /*point*/) { }
    /// The pointer has left, a button was pressed, or the view was hidden. Also called without a hover
    /// before.
    virtual void hoverEnded() { }

    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    void followBounds();
    void pointerMoved(QPointF point);

    bool isAnimated_ = true;
    bool interactionEnabled_ = false;
    std::atomic<bool> viewNeedsLayout_ = false;
    std::atomic<bool> viewNeedsRedraw_ = false;
    std::optional<QRect> trackingArea_;
    bool isSetUp_ = false;
    QPainter* context_ = nullptr;
};

} // namespace quor::toolkit
