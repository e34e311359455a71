// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/BackButton.h"

#include "FormKit_macOS/FormMacOSResource.h"

#include <QEvent>
#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::formkit {

BackButton::BackButton(QWidget* parent)
    : QToolButton(parent)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    const QString title = FormMacOSResource::localizedString(u"FormBackTitle"_s);
    setToolTip(title);
    setAccessibleName(title);
    updateIcon();
}

QSize BackButton::sizeHint() const
{
    // A square, also without an icon.
    const QSize hint = QToolButton::sizeHint();
    const int side = std::max(hint.height(), iconSize().height() + hint.height() - fontMetrics().height());
    return {side, side};
}

void BackButton::updateIcon()
{
    // Themes draw their icons for left-to-right; the one that points the other way leads back in the other.
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    setIcon(QIcon::fromTheme(isMirrored ? u"go-next"_s : u"go-previous"_s));
}

void BackButton::changeEvent(QEvent* event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::StyleChange
        || event->type() == QEvent::PaletteChange)
        updateIcon();
}

void BackButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QToolButton::keyPressEvent(event);
    else if (!event->isAutoRepeat()) // a key that is held down presses once
        click();
}

void BackButton::paintEvent(QPaintEvent* event)
{
    QToolButton::paintEvent(event);
    if (!icon().isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double height = std::min(iconSize().height(), QToolButton::height()) / 2.0;
    constexpr double strokeShare = 0.2;
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    painter.setPen(QPen(palette().color(group, foregroundRole()), height * strokeShare, Qt::SolidLine,
        Qt::RoundCap, Qt::RoundJoin));
    const double tip = layoutDirection() == Qt::RightToLeft ? height / 4 : -height / 4;
    painter.translate(QRectF(rect()).center());
    painter.drawPolyline(QPolygonF({{-tip, -height / 2}, {tip, 0}, {-tip, height / 2}}));
}

} // namespace quor::formkit
