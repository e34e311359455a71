// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/ElidedLabel.h"

#include "FormKit_macOS/Controls/ElidedText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::formkit {

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setContentsMargins(0, lineMargin, 0, lineMargin);
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
    showWholeText(static_cast<QHelpEvent&>(*event), *this, text(), elided() == text());
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

} // namespace quor::formkit
