// SPDX-License-Identifier: MIT
// Shows the days around a moment, as a report of working times would:
//     example-dates 2024-10-26T15:04:05
//     example-dates --zone America/Mexico_City --locale es_MX 2026-07-01T12:00:00Z
#include <Platform/Calendar/Date.h>
#include <Platform/Calendar/TimeZones.h>
#include <ToolKit/Dates/DateOperations.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QTextStream>

#include <limits>

using namespace quor::toolkit;

namespace {

int fail(const QString& reason)
{
    QTextStream(stderr) << "example-dates: " << reason << '\n';
    return 1;
}

void showDays(Date date, const QTimeZone& zone)
{
    const auto text = [&zone](Date moment) {
        return quor::platform::qDateTimeFromDate(moment, zone).toString(Qt::ISODate);
    };
    QTextStream out(stdout);
    out << "date:      " << text(date) << ", week " << weekOfYear(date) << ", " << relativeText(date)
        << (isWeekend(date) ? ", a weekend\n" : "\n");

    // A start is the first second of its period, an end the last.
    out << "day:       " << text(startOfDay(date)) << " to " << text(endOfDay(date)) << '\n';
    out << "week:      " << text(startOfWeek(date)) << " to " << text(endOfWeek(date)) << '\n';
    out << "month:     " << text(startOfMonth(date)) << " to " << text(endOfMonth(date)) << '\n';
    out << "quarter " << quarterIndex(date) + 1 << ": " << text(startOfQuarter(date)) << " to "
        << text(endOfQuarter(date)) << '\n';
    out << "rounded:   " << text(roundedToHour(date)) << '\n';

    // Steps keep the time of day, also over a change of the clocks.
    const Date later = adding(date, 2, DurationInterval::day);
    out << "in two days: " << text(later) << ", " << numberOfDays(date, later) << " days, both included:\n";
    forEachDay(date, later, [&](Date day) { out << "    " << text(day) << '\n'; });

    // A moment that no calendar covers is on no day.
    const Date never = quor::platform::dateFromSeconds(std::numeric_limits<double>::quiet_NaN());
    out << "never:     " << (isSameDay(never, never) ? "a day\n" : "no day\n");
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows the days around a moment, as a report of working times would."));
    parser.addHelpOption();
    parser.addOptions({{QStringLiteral("zone"), QStringLiteral("The time zone instead of the user's."),
                           QStringLiteral("ID")},
        {QStringLiteral("locale"), QStringLiteral("The locale instead of the user's."),
            QStringLiteral("LOCALE")}});
    parser.addPositionalArgument(QStringLiteral("moment"),
        QStringLiteral("In ISO 8601; without an offset, a local time of the zone."),
        QStringLiteral("[moment]"));
    parser.process(application);

    // All date operations use one calendar. It follows the user's settings, except for those that a program
    // sets.
    quor::platform::Calendar shared = calendar();
    QTimeZone zone = quor::platform::userTimeZone();
    if (parser.isSet(QStringLiteral("zone"))) {
        const QString name = parser.value(QStringLiteral("zone"));
        const auto named = quor::platform::namedTimeZone(name.toUtf8());
        if (!named)
            return fail(QStringLiteral("there is no time zone \"%1\"").arg(name));
        zone = *named;
        shared.setTimeZone(zone);
    }
    if (parser.isSet(QStringLiteral("locale"))) {
        const QString name = parser.value(QStringLiteral("locale"));
        const QLocale locale(name);
        if (locale == QLocale::c() && name != u"C") // what Qt returns for an unknown name
            return fail(QStringLiteral("there is no locale \"%1\"").arg(name));
        shared.setLocale(locale);
    }
    setCalendar(shared);

    const QString wanted = parser.positionalArguments().value(0, QStringLiteral("2024-10-26T15:04:05"));
    QDateTime time = QDateTime::fromString(wanted, Qt::ISODate);
    if (time.timeSpec() == Qt::LocalTime)
        time = QDateTime(time.date(), time.time(), zone);
    const auto date = quor::platform::dateFromQDateTime(time);
    if (!date)
        return fail(
            QStringLiteral("\"%1\" is not a moment; write one as in 2024-10-26T15:04:05").arg(wanted));
    showDays(*date, zone);
    return 0;
}
