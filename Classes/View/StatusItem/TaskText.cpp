// SPDX-License-Identifier: MIT
#include "View/StatusItem/TaskText.h"

#include "ToolKit/Text/StringHelpers.h"

#include <QStringView>

namespace quor::helper {

namespace {

// Line breaks are not blanks, unlike for `QString::trimmed`.
bool isBlank(QChar unit)
{
    return unit == u'\t' || unit.category() == QChar::Separator_Space;
}

QStringView trimmed(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

} // namespace

QString taskText(const QString& name, std::size_t runningTimers)
{
    const QString text = toolkit::withoutEmoji(name);
    QString shown = trimmed(text).toString();
    if (runningTimers >= 2)
        shown += u'+' + QString::number(runningTimers - 1);
    return shown;
}

} // namespace quor::helper
