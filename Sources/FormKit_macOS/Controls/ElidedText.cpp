// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/ElidedText.h"

#include <QHelpEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quor::formkit {

QString singleLine(const QString& text)
{
    return text.simplified();
}

QString withoutMnemonic(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

QString plainToolTip(const QString& text)
{
    constexpr int longest = 1000; // characters, which fit on the smallest screens
    const QString shown = text.size() > longest ? text.left(longest) + u'…' : text;
    return u"<p style=\"white-space:pre-wrap\">"_s + shown.toHtmlEscaped() + u"</p>"_s;
}

void showWholeText(QHelpEvent& event, QWidget& widget, const QString& text, bool isWhole)
{
    event.setAccepted(!isWhole);
    if (!isWhole)
        QToolTip::showText(event.globalPos(), plainToolTip(text), &widget);
}

} // namespace quor::formkit
