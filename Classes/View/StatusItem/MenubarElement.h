// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QWidget>

namespace quor::helper {

/// One thing that the status item shows: a symbol, a text, or a stack of them.
///
/// Its tag tells how it is shown. A cut-out one is only ever drawn into the pill, through `draw`, and
/// has no room as a widget; a live one is a widget above the pill, which paints itself by the same
/// `draw`. Widgets lie on whole device-independent pixels, elements need not: so an element has a
/// frame of its own, within the stack that it belongs to, and its widget is the whole pixels around it.
class MenubarElement : public QWidget {
    Q_OBJECT

public:
    explicit MenubarElement(int tag, QWidget* parent = nullptr);

    [[nodiscard]] int tag() const { return tag_; }

    /// The room that the element wants, in device-independent pixels.
    [[nodiscard]] virtual QSizeF fittingSize() const = 0;

    /// Draws the element with its upper left corner at the painter's origin, as large as its frame.
    virtual void draw(QPainter& painter) const = 0;

    [[nodiscard]] const QRectF& frame() const { return frame_; }
    void setFrame(const QRectF& frame) { frame_ = frame; }

    /// Puts the widget where its frame is when the frame's coordinates start at `origin` in the parent.
    void place(QPointF origin);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int tag_;
    QRectF frame_;
    QPointF origin_; ///< of the frame's coordinates, in this widget's
};

} // namespace quor::helper
