// SPDX-License-Identifier: MIT
#include "View/StatusItem/SingleLineText.h"

#include <QPainter>

#include <algorithm>

namespace quor::helper {

QString singleLine(const QString& text, qsizetype longest)
{
    qsizetype length = std::min(text.size(), longest);
    if (length < text.size() && text[length].isLowSurrogate())
        --length;
    QString shown = text.first(length);
    const auto breaksLine = [](QChar unit) {
        return unit.category() == QChar::Other_Control || unit.category() == QChar::Separator_Line
            || unit.category() == QChar::Separator_Paragraph;
    };
    if (std::any_of(shown.cbegin(), shown.cend(), breaksLine))
        std::replace_if(shown.begin(), shown.end(), breaksLine, QChar(u' '));
    return shown;
}

QPointF alignedToDevicePixels(const QPainter& painter, QPointF point)
{
    const QTransform toDevice = painter.deviceTransform();
    return toDevice.inverted().map(QPointF(toDevice.map(point).toPoint()));
}

} // namespace quor::helper
