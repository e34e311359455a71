// SPDX-License-Identifier: MIT
#include "Peer/CommandLine/PlainText.h"

#include "Platform/Calendar/Date.h"

#include <QDateTime>
#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

QString line(const QStringList& fields)
{
    return fields.join(u'\t');
}

QString escaped(const QJsonValue& text)
{
    return text.toString()
        .replace(u'\\', R"(\\)"_L1)
        .replace(u'\t', R"(\t)"_L1)
        .replace(u'\n', R"(\n)"_L1)
        .replace(u'\r', R"(\r)"_L1);
}

QString duration(const QJsonValue& seconds)
{
    const auto whole = static_cast<qint64>(seconds.toDouble());
    const QLatin1Char zero('0');
    return u"%1:%2:%3"_s.arg(whole / 3600, 2, 10, zero)
        .arg(whole / 60 % 60, 2, 10, zero)
        .arg(whole % 60, 2, 10, zero);
}

QString moment(const QJsonValue& seconds)
{
    const QDateTime local
        = platform::qDateTimeFromDate(platform::dateFromSeconds(std::floor(seconds.toDouble())));
    return local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODate);
}

QString settingText(const QJsonValue& value)
{
    return value.isBool() ? (value.toBool() ? u"true"_s : u"false"_s)
                          : QString::number(value.toDouble(), 'g', 15);
}

} // namespace

QString plainText(const QJsonArray& taskReport)
{
    QStringList lines;
    for (const QJsonValue task : taskReport)
        lines.append(line({task["id"_L1].toString(), task["color"_L1].toString(u"-"_s),
            task["running"_L1].toBool() ? u"running"_s : u"idle"_s, duration(task["secondsToday"_L1]),
            escaped(task["name"_L1])}));
    return lines.join(u'\n');
}

QString plainText(const QJsonObject& statusReport)
{
    QStringList lines;
    for (const QJsonValue timer : statusReport["running"_L1].toArray())
        lines.append(line({u"running"_s, timer["id"_L1].toString(), moment(timer["start"_L1]),
            duration(timer["seconds"_L1]), escaped(timer["name"_L1])}));
    lines.append(line({u"today"_s, duration(statusReport["secondsToday"_L1])}));
    const QJsonObject settings = statusReport["settings"_L1].toObject();
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        lines.append(line({u"setting"_s, setting.key(), settingText(setting.value())}));
    return lines.join(u'\n');
}

} // namespace quor::peer
