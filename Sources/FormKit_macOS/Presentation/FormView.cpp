// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormView.h"

#include <QKeyEvent>
#include <QLayout>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace quor::formkit {

FormView::FormView()
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, &FormView::updateHorizontalScrolling);
}

void FormView::setContent(std::unique_ptr<QWidget> content)
{
    QWidget* view = content.release();
    setWidget(view);
    view->setAutoFillBackground(false); // the window's background shows
}

void FormView::updateContentSize(double width)
{
    widget()->setMinimumWidth(0);
    widget()->setMinimumWidth(
        std::clamp(int(std::ceil(width)), widget()->minimumSizeHint().width(), QWIDGETSIZE_MAX));
    updateHorizontalScrolling();
    updateGeometry();
}

// The vertical scroll bar covers only the margin beside the rows, for which nobody wants to scroll.
void FormView::updateHorizontalScrolling()
{
    const bool fits = !widget() || widget()->minimumWidth() <= contentsRect().width();
    setHorizontalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    if (fits)
        horizontalScrollBar()->setRange(0, 0);
}

QSize FormView::sizeHint() const
{
    if (!widget())
        return {0, 0};
    const int width = widget()->minimumWidth();
    const auto* const layout = widget()->layout();
    const int height = layout ? layout->heightForWidth(width) : -1;
    return {width, height < 0 ? widget()->sizeHint().height() : height};
}

void FormView::keyPressEvent(QKeyEvent* event)
{
    const bool scrolls = verticalScrollBar()->maximum() > 0 || horizontalScrollBar()->maximum() > 0;
    if (scrolls && !(event->modifiers() & ~Qt::KeypadModifier))
        QScrollArea::keyPressEvent(event);
    else
        event->ignore();
}

} // namespace quor::formkit
