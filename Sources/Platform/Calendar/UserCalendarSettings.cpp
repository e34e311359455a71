// SPDX-License-Identifier: MIT
#include "Platform/Calendar/UserCalendarSettings.h"

#include <QDateTime>

#include <unicode/timezone.h>

#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

bool isKnownZone(const QByteArray& name)
{
    const std::unique_ptr<icu::TimeZone> zone(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name.constData())));
    return *zone != icu::TimeZone::getUnknown();
}

/// The variable TZ may hold a path, and a colon before it.
QByteArray plainName(QByteArray name)
{
    if (name.startsWith(':'))
        name.remove(0, 1);
    const QByteArray folder = "/zoneinfo/"_ba;
    const qsizetype at = name.indexOf(folder);
    return at < 0 ? name : name.sliced(at + folder.size());
}

QByteArray offsetName(int seconds)
{
    const int distance = std::abs(seconds);
    return QStringLiteral("GMT%1%2:%3:%4")
        .arg(QChar(seconds < 0 ? u'-' : u'+'))
        .arg(distance / 3600, 2, 10, QLatin1Char('0'))
        .arg(distance / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(distance % 60, 2, 10, QLatin1Char('0'))
        .toLatin1();
}

} // namespace

QLocale userDateLocale()
{
    const QLocale user;
    if (user != QLocale::system())
        return user;
    for (const char* const variable : {"LC_ALL", "LC_TIME"}) {
        const QByteArray name = qgetenv(variable);
        if (!name.isEmpty())
            return QLocale(QString::fromLocal8Bit(name));
    }
    return user;
}

QByteArray icuZoneName(const QTimeZone& zone)
{
    const QByteArray name = zone.id();
    return isKnownZone(name) ? name : offsetName(zone.offsetFromUtc(QDateTime::currentDateTimeUtc()));
}

const QByteArray& MachineZone::icuName()
{
    const QByteArray variable = qgetenv("TZ");
    const auto now = Clock::now();
    if (now < nextLook_ && variable == variable_)
        return name_;
    variable_ = variable;
    nextLook_ = now + std::chrono::seconds(1);
    const QByteArray name = plainName(QTimeZone::systemTimeZoneId());
    // A system that cannot name its zone says UTC.
    const bool isNamed = name != "UTC"_ba && isKnownZone(name);
    name_ = isNamed ? name : offsetName(QDateTime::currentDateTime().offsetFromUtc());
    return name_;
}

} // namespace quor::platform
