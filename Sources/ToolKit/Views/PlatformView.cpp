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
    // Qt merges posted layout requests into one.
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
    // Unlike mouse tracking, hover events also come for moves over the widgets in this one.
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
    // A drag is not a hover.
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
        // In the constructor, the hook of the derived class would not be called.
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
    // The right button is taken as a click, so it must not open the context menu of a widget below this one.
    // The menu key may.
    event->setAccepted(interactionEnabled_ && event->reason() == QContextMenuEvent::Mouse);
}

void PlatformView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // A window that is hidden gets no leave event.
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
