// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/DropdownPanel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace quor::formkit {

DropdownPanel::DropdownPanel(const DropdownItems& items, std::optional<int> selectedIndex, QWidget& anchor)
    // Not of the anchor, which would be half destroyed when it deletes this panel.
    : QFrame(anchor.window(), Qt::Popup)
    , watched_(anchor, anchor.rect())
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    view_ = new DropdownView(items, selectedIndex, anchor.width() - 2 * frameWidth());
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setAccessibleName(anchor.accessibleName());
    setLayoutDirection(anchor.layoutDirection());
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(view_);
    connect(view_, &DropdownView::resized, this, &DropdownPanel::place);
    watched_.moved = [this] { place(); };
    watched_.lost = [this] { close(); };
}

QRect DropdownPanel::screen() const
{
    return parentWidget()->screen()->availableGeometry();
}

QSize DropdownPanel::panelSize() const
{
    const QSize frame(2 * frameWidth(), 2 * frameWidth());
    return view_->fittingSize(screen().height() / 2 - frame.height()) + frame;
}

void DropdownPanel::open()
{
    side_ = panelSide(watched_.onScreen(), panelSize().height(), screen());
    place();
    show();
    view_->keyboardReceiver().setFocus(Qt::PopupFocusReason);
}

void DropdownPanel::place()
{
    setGeometry(placePanel(watched_.onScreen(), panelSize(), screen(), side_, layoutDirection()));
}

void DropdownPanel::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        close(); // it is disabled together with the window
}

void DropdownPanel::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    Q_EMIT closed();
}

void DropdownPanel::keyPressEvent(QKeyEvent* event)
{
    // The form around the anchor must not get keys that the list does not use.
    event->accept();
    if (event->matches(QKeySequence::Cancel))
        close();
}

void DropdownPanel::mousePressEvent(QMouseEvent* event)
{
    const QPoint place = event->globalPosition().toPoint();
    // Else the press would reach the anchor after it has closed the panel, and open it again.
    setAttribute(Qt::WA_NoMouseReplay, watched_.viewContains(place));
    QFrame::mousePressEvent(event);
}

} // namespace quor::formkit
