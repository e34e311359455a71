// SPDX-License-Identifier: MIT
// Shows the days around a moment, as a report of working times would:
//     example-dates 2024-10-26T15:04:05
#include <Platform/Calendar/Date.h>
#include <ToolKit/Dates/DateOperations.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QTextStream>
#include <QTimeZone>

#include <limits>

using namespace quor::toolkit;

namespace {

QString text(Date date)
{
    return quor::platform::qDateTimeFromDate(date, QTimeZone("Europe/Berlin")).toString(Qt::ISODate);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows the days around a moment, as a report of working times would."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("moment"),
        QStringLiteral("In ISO 8601; without an offset, a local time of this machine."),
        QStringLiteral("[moment]"));
    parser.process(application);
    const QString wanted = parser.positionalArguments().value(0, QStringLiteral("2024-10-26T15:04:05"));
    const auto moment = quor::platform::dateFromQDateTime(QDateTime::fromString(wanted, Qt::ISODate));
    if (!moment) {
        QTextStream(stderr) << "example-dates: \"" << wanted
                            << "\" is not a moment; write one as in 2024-10-26T15:04:05\n";
        return 1;
    }
    const Date date = *moment;
    QTextStream out(stdout);

    // All date operations use one calendar. It follows the user's settings, except for those that a program
    // sets.
    quor::platform::Calendar german = calendar();
    german.setTimeZone(QTimeZone("Europe/Berlin"));
    german.setLocale(QLocale(QLocale::German, QLocale::Germany));
    setCalendar(german);

    out << "date:      " << text(date) << ", week " << weekOfYear(date) << ", " << relativeText(date)
        << (isWeekend(date) ? ", a weekend\n" : "\n");

    // A start is the first second of its period, an end the last.
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
    return 0;
}
