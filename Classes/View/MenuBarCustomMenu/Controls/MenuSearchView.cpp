// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Controls/MenuSearchView.h"

#include "Platform/Resources/Tinting.h"
#include "ToolKit_macOS/SearchGlass.h"
#include "View/MenuBarCustomMenu/Drawing/MenuFont.h"
#include "View/MenuBarCustomMenu/MenuResources.h"

#include <QEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quor::helper {

namespace {

constexpr int glassMargin = 7;

} // namespace

MenuSearchView::MenuSearchView(QWidget* parent)
    : QLineEdit(parent)
{
    const QString title = menuResources().localizedString(u"MenubarSearchPlaceholder"_s);
    setPlaceholderText(title);
    setAccessibleName(title);
    setFrame(false);
    setClearButtonEnabled(true);
    QPalette clear; // paintEvent draws the background
    clear.setColor(QPalette::Base, Qt::transparent);
    setPalette(clear);
    followDesktop();
}

void MenuSearchView::followDesktop()
{
    setFont(menuFont());
    const int glass = fontMetrics().height() + glassMargin / 2;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    constexpr int otherMargin = 4;
    setTextMargins(isMirrored ? otherMargin : glass, 0, isMirrored ? glass : otherMargin, 0);
}

QSize MenuSearchView::sizeHint() const
{
    constexpr int shownLetters = 16;
    return {shownLetters * fontMetrics().averageCharWidth() + 2 * fontMetrics().height(),
        fontMetrics().height() + 8};
}

QSize MenuSearchView::minimumSizeHint() const
{
    return sizeHint();
}

void MenuSearchView::showEvent(QShowEvent* event)
{
    QLineEdit::showEvent(event);
    followDesktop();
}

void MenuSearchView::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    switch (event->reason()) {
    case Qt::MouseFocusReason: // the click sets the caret
    case Qt::PopupFocusReason: // the caret stays where it was before
    case Qt::ActiveWindowFocusReason:
        return;
    default:
        deselect();
        end(false);
    }
}

void MenuSearchView::keyPressEvent(QKeyEvent* event)
{
    if (keyHandler(*event))
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

QRectF MenuSearchView::glassFrame() const
{
    const int side = fontMetrics().ascent() * 3 / 4;
    const int x = layoutDirection() == Qt::RightToLeft ? width() - glassMargin - side : glassMargin;
    return {QPointF(x, (height() - side) / 2.0), QSizeF(side, side)};
}

void MenuSearchView::paintEvent(QPaintEvent* event)
{
    constexpr qreal cornerRadius = 6;
    const QColor ink = palette().color(QPalette::Text);
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(platform::withAlpha(ink, 0.25));
        painter.setBrush(platform::withAlpha(ink, 0.07));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
        toolkit::drawSearchGlass(painter, glassFrame(), platform::withAlpha(ink, 0.6));
    }
    QLineEdit::paintEvent(event);
}

void MenuSearchView::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        followDesktop();
}

} // namespace quor::helper
