// SPDX-License-Identifier: MIT
// Shows the days around a moment, as a report of working times would:
//     example-dates 2024-10-26T15:04:05
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
    const auto moment = qint64(quor::platform::secondsSince1970(date));
    return QDateTime::fromSecsSinceEpoch(moment, QTimeZone("Europe/Berlin")).toString(Qt::ISODate);
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
        QStringLiteral("In ISO 8601; without a zone, that of this machine counts."),
        QStringLiteral("[moment]"));
    parser.process(application);
    const QString wanted = parser.positionalArguments().value(0, QStringLiteral("2024-10-26T15:04:05"));
    const QDateTime time = QDateTime::fromString(wanted, Qt::ISODate);
    if (!time.isValid()) {
        QTextStream(stderr) << "no moment: " << wanted << '\n';
        return 1;
    }
    QTextStream out(stdout);

    // Everything goes through one calendar. It follows the user's settings, but for what a program sets.
    quor::platform::Calendar german = calendar();
    german.setTimeZone(QTimeZone("Europe/Berlin"));
    german.setLocale(QLocale(QLocale::German, QLocale::Germany));
    setCalendar(german);

    const Date date = quor::platform::dateFromSeconds(double(time.toSecsSinceEpoch()));
    out << "date:      " << text(date) << ", week " << weekOfYear(date) << ", " << relativeText(date)
        << (isWeekend(date) ? ", a weekend\n" : "\n");

    // A start and an end are the first and the last second of what they enclose.
    out << "week:      " << text(startOfWeek(date)) << " to " << text(endOfWeek(date)) << '\n';
    out << "month:     " << text(startOfMonth(date)) << " to " << text(endOfMonth(date)) << '\n';
    out << "quarter " << quarterIndex(date) + 1 << ": " << text(startOfQuarter(date)) << " to "
        << text(endOfQuarter(date)) << '\n';
    out << "rounded:   " << text(roundedToHour(date)) << '\n';

    // Steps keep the time of day, over the change of the clocks too.
    const Date later = adding(date, 2, DurationInterval::day);
    out << "two days on: " << text(later) << ", " << numberOfDays(date, later) << " days with both:\n";
    forEachDay(date, later, [&](Date day) { out << "    " << text(day) << '\n'; });

    // What is no moment of any calendar stays what it is.
    const Date never = quor::platform::dateFromSeconds(std::numeric_limits<double>::quiet_NaN());
    out << "never:     " << (isSameDay(never, never) ? "a day\n" : "no day\n");
    return 0;
}
