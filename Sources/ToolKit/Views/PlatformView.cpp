// SPDX-License-Identifier: MIT
#include "ToolKit/Views/PlatformView.h"

#include "ToolKit/Deferred/EventProtocol.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace quor::toolkit {

PlatformView::PlatformView(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PlatformView::setInteractionEnabled(bool enabled)
{
    interactionEnabled_ = enabled;
    setAttribute(Qt::WA_TransparentForMouseEvents, !enabled);
    updateTrackingAreas();
}

void PlatformView::setViewNeedsLayout(bool needed)
{
    viewNeedsLayout_ = needed;
    // Requests that wait are joined into one.
    if (needed && isMainThread())
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void PlatformView::setViewNeedsRedraw(bool needed)
{
    viewNeedsRedraw_ = needed;
    if (needed && isMainThread())
        update();
}

void PlatformView::updateTrackingAreas()
{
    trackingArea_ = interactionEnabled_ ? std::optional(rect()) : std::nullopt;
    // Unlike plain tracking of the mouse this also tells of moves over the widgets within.
    setAttribute(Qt::WA_Hover, interactionEnabled_);
    if (!isVisible())
        return;
    ensurePolished();
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    if (rect().contains(pointer))
        hover(pointer);
    else
        hoverEnded();
}

void PlatformView::followBounds()
{
    if (trackingArea_)
        updateTrackingAreas();
}

void PlatformView::pointerMoved(QPointF point)
{
    // A drag is no hover.
    if (interactionEnabled_ && QGuiApplication::mouseButtons() == Qt::NoButton)
        hover(point);
}

void PlatformView::layOut()
{
    ensurePolished();
    if (!rect().isEmpty())
        layoutContent();
}

bool PlatformView::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Polish:
        QWidget::event(event);
        // The constructor would be too early: a derived class is not there yet.
        if (!std::exchange(isSetUp_, true))
            setup();
        return true;
    case QEvent::LayoutRequest:
        QWidget::event(event);
        layOut();
        return true;
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        pointerMoved(static_cast<QHoverEvent*>(event)->position());
        return true;
    case QEvent::HoverLeave:
        if (interactionEnabled_)
            hoverEnded();
        return true;
    default:
        return QWidget::event(event);
    }
}

void PlatformView::mousePressEvent(QMouseEvent* event)
{
    const bool isClick = event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
    if (!interactionEnabled_ || !isClick) {
        QWidget::mousePressEvent(event);
        return;
    }
    event->accept();
    const QPointer self(this);
    hoverEnded();
    if (self)
        mouseDown(event->position());
}

void PlatformView::contextMenuEvent(QContextMenuEvent* event)
{
    // A right click is a click, so no menu of a view behind may open at it; one asked for by a key may.
    event->setAccepted(interactionEnabled_ && event->reason() == QContextMenuEvent::Mouse);
}

void PlatformView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // A window that goes takes no leave of the pointer.
    if (interactionEnabled_)
        hoverEnded();
}

void PlatformView::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    followBounds();
}

void PlatformView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (rect().isEmpty() || !painter.isActive())
        return;
    ensurePolished();
    context_ = &painter;
    draw(painter);
    context_ = nullptr;
}

void PlatformView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    followBounds();
    layOut();
}

void PlatformView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    followBounds();
}

} // namespace quor::toolkit
