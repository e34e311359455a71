// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRect>
#include <QWidget>

#include <atomic>
#include <optional>

class QPainter;

namespace quor::toolkit {

/// The base of the kit's own views: it turns the events of mouse and layout into a few hooks.
///
/// A new view takes no part in the mouse: what lies behind it gets the clicks until
/// `setInteractionEnabled(true)`, and so for the views within it. Lengths are device-independent
/// pixels, y points down, and a point given to a hook is in the view's own coordinates. Main thread
/// only, but for `setViewNeedsLayout` and `setViewNeedsRedraw`.
class PlatformView : public QWidget {
    Q_OBJECT

public:
    explicit PlatformView(QWidget* parent = nullptr);

    [[nodiscard]] bool isFlipped() const { return true; }

    /// What bears the view's shadow (see `applyLightShadow`): a widget needs nothing beside itself.
    [[nodiscard]] QWidget& layer() { return *this; }

    /// What the view is being drawn with; null while it isn't.
    [[nodiscard]] QPainter* cgContext() const { return context_; }

    /// Kept for derived classes, at first true.
    [[nodiscard]] bool isAnimated() const { return isAnimated_; }
    void setAnimated(bool isAnimated) { isAnimated_ = isAnimated; }

    /// Whether the view takes mouse events at all. Setting it runs `updateTrackingAreas`.
    [[nodiscard]] bool interactionEnabled() const { return interactionEnabled_; }
    void setInteractionEnabled(bool enabled);

    /// What was last asked for; it stays when it has been done. Setting it to true on the main thread
    /// brings `layoutContent` or `draw` about, once the caller has returned to the event loop. Any
    /// other thread only leaves the value.
    [[nodiscard]] bool viewNeedsLayout() const { return viewNeedsLayout_; }
    void setViewNeedsLayout(bool needed);
    [[nodiscard]] bool viewNeedsRedraw() const { return viewNeedsRedraw_; }
    void setViewNeedsRedraw(bool needed);

    /// Where the pointer is followed; none without interaction.
    [[nodiscard]] const std::optional<QRect>& trackingArea() const { return trackingArea_; }

    /// Follows the pointer over the bounds as they are now, if interaction is enabled. In any case a
    /// view that is shown is told where the pointer is, by `hover` or `hoverEnded`. A view that
    /// follows the pointer comes here by itself when it is moved, resized or shown.
    virtual void updateTrackingAreas();

protected:
    // A hook that ends its own view calls `deleteLater`; one that a press has called may delete it too.

    /// Called once, before the view is first laid out, drawn or shown.
    virtual void setup() { }
    /// Only called for bounds that are not empty, as the next one is.
    virtual void draw(QPainter& /*context*/) { }
    virtual void layoutContent() { }
    /// Either button, left or right, has been pressed; a hover has been ended.
    virtual void mouseDown(QPointF /*point*/) { }
    /// The pointer has come or moved, no button held, over the view or what it contains.
    virtual void hover(QPointF /*point*/) { }
    /// The pointer has left, or a press has come, or the view is out of sight; also where no hover was.
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
