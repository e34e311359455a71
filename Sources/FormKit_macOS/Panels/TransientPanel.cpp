// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Panels/TransientPanel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

namespace quor::formkit {

TransientPanel::TransientPanel(QWidget& anchor, QWidget& opener)
    // Not of the anchor, which would be half destroyed when it deletes this panel.
    : QFrame(anchor.window(), Qt::Popup)
    , watched_(anchor, anchor.rect())
    , opener_(&opener)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAccessibleName(anchor.accessibleName());
    setLayoutDirection(anchor.layoutDirection());
    watched_.moved = [this] { place(); };
    watched_.lost = [this] { close(); };
}

QRect TransientPanel::screenArea() const
{
    return parentWidget()->screen()->availableGeometry();
}

void TransientPanel::open()
{
    const QRect screen = screenArea();
    side_ = panelSide(watched_.onScreen(), wantedSize(screen).height(), screen);
    place();
    show();
    keyboardReceiver().setFocus(Qt::PopupFocusReason);
}

QRect TransientPanel::placeAt(const QRect& anchor, QSize size, const QRect& screen) const
{
    return placePanel(anchor, size, screen, side_, layoutDirection());
}

void TransientPanel::place()
{
    const QRect screen = screenArea();
    setGeometry(placeAt(watched_.onScreen(), wantedSize(screen), screen));
}

void TransientPanel::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        close(); // it is disabled together with the window
}

void TransientPanel::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    Q_EMIT closed();
}

void TransientPanel::keyPressEvent(QKeyEvent* event)
{
    // The form around the anchor must not get keys that the panel does not use.
    event->accept();
    if (event->matches(QKeySequence::Cancel))
        close();
}

void TransientPanel::mousePressEvent(QMouseEvent* event)
{
    const QPoint place = event->globalPosition().toPoint();
    // Else the press would reach the opener after it has closed the panel, and open it again.
    setAttribute(Qt::WA_NoMouseReplay, opener_ && opener_->rect().contains(opener_->mapFromGlobal(place)));
    QFrame::mousePressEvent(event);
}

} // namespace quor::formkit
