// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::formkit {

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setLine(const QString& text)
{
    setText(singleLine(text));
}

QSize ElidedLabel::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    const QMargins margins = contentsMargins();
    const int ellipsis
        = fontMetrics().horizontalAdvance(u"…"_s) + margins.left() + margins.right() + 2 * margin();
    return {std::min(whole.width(), ellipsis), whole.height()};
}

QString ElidedLabel::elided() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width() - 2 * margin());
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return QLabel::event(event);
    if (elided() == text())
        event->ignore();
    else
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(text()), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect rect = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const auto flags = QStyle::visualAlignment(layoutDirection(), alignment()) | Qt::TextSingleLine
        | (layoutDirection() == Qt::RightToLeft ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight);
    style()->drawItemText(
        &painter, rect, static_cast<int>(flags), palette(), isEnabled(), elided(), foregroundRole());
}

QString singleLine(const QString& text)
{
    return text.simplified();
}

QString plainToolTip(const QString& text)
{
    constexpr int longest = 1000; // characters, which fit on the smallest screens
    const QString shown = text.size() > longest ? text.left(longest) + u'…' : text;
    return u"<p style=\"white-space:pre-wrap\">"_s + shown.toHtmlEscaped() + u"</p>"_s;
}

} // namespace quor::formkit
