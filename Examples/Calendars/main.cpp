// SPDX-License-Identifier: MIT
// Plans a month in a calendar of its own, in a temporary folder or in the folder of your own calendars:
//     example-calendars ~/.local/share/calendars
#include <ToolKit/Calendar/Stores/CalendarStore.h>
#include <ToolKit/Calendar/Stores/ReminderStore.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The list has each source, followed by its calendars.
void listCalendars(const CalendarStore& store, QTextStream& out)
{
    for (const auto& entry : store.calendarSources()) {
        if (const auto* source = std::get_if<CalendarStore::CalendarSource::Source>(&entry.value))
            out << source->source.title << '\n';
        else if (const auto* found = std::get_if<CalendarStore::CalendarSource::Calendar>(&entry.value))
            out << "  " << found->calendar->title() << " (" << found->calendar->calendarIdentifier() << ")\n";
    }
}

std::shared_ptr<EventCalendar> findOrCreate(CalendarStore& store, const QString& title)
{
    std::optional<EventSource> first;
    for (const auto& entry : store.calendarSources()) {
        if (const auto* source = std::get_if<CalendarStore::CalendarSource::Source>(&entry.value))
            first = first.value_or(source->source);
        else if (const auto* found = std::get_if<CalendarStore::CalendarSource::Calendar>(&entry.value);
                 found && found->calendar->title() == title)
            return found->calendar;
    }
    return first ? store.createCalendar(*first, title, QColor(0x44, 0x65, 0xf9)) : nullptr;
}

void plan(
    CalendarStore& store, const QString& calendar, const QString& title, Date start, const QString& rule)
{
    const auto event = store.newEvent(calendar);
    if (!event)
        return;
    event->setTitle(title);
    event->setStartDate(start);
    event->setEndDate(start + 45min);
    event->setRecurrenceRule(rule); // empty for an event that happens once
    store.saveEvent(event);
}

// A `ReminderStore` only reads. An `EventStore` also writes reminders, and returns failures.
std::optional<EventStoreError> remind(const EventStoreOptions& options, const QString& title, Date due)
{
    EventStore store(options);
    auto lists = store.calendars(EntityType::reminder);
    if (lists.empty()) {
        lists.push_back(store.newCalendar(EntityType::reminder));
        lists.front()->setTitle(u"To do"_s);
        lists.front()->setSource(store.sources().front());
        if (auto error = store.saveCalendar(lists.front(), true))
            return error;
    }
    const auto reminder = store.newReminder();
    reminder->setCalendar(lists.front());
    reminder->setTitle(title);
    reminder->setDueDate(due);
    return store.saveReminder(reminder, true);
}

QString text(Date date)
{
    const auto seconds = static_cast<qint64>(quor::platform::secondsSince1970(date));
    return QDateTime::fromSecsSinceEpoch(seconds).toString(u"ddd yyyy-MM-dd hh:mm"_s);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Plans a month in a calendar of its own."_s);
    parser.addHelpOption();
    parser.addPositionalArgument(
        u"folder"_s, u"The folder of the calendars. Default: a temporary one."_s, u"[folder]"_s);
    parser.process(application);
    EventStoreOptions options; // the defaults mean the user's own calendars
    options.root = parser.positionalArguments().value(0, folder.path());
    QTextStream out(stdout);

    // Without access, reads return nothing.
    CalendarStore store(options);
    const auto calendar = store.requestAccess().result() ? findOrCreate(store, u"Quor"_s) : nullptr;
    if (!calendar) {
        QTextStream(stderr) << "no calendar can be kept in " << *options.root << '\n';
        return 1;
    }
    listCalendars(store, out);

    const Date start = quor::platform::dateFromSeconds(
        static_cast<double>(QDate::currentDate().addDays(1).startOfDay().toSecsSinceEpoch()));
    plan(store, calendar->calendarIdentifier(), u"Review"_s, start + 10h, u"FREQ=WEEKLY;COUNT=4"_s);
    plan(store, calendar->calendarIdentifier(), u"Travel"_s, start + 15h, {});

    // Both events are written together, a second after the last change. The handler is called once for a
    // burst of changes, by this program or any other.
    store.startObserving(0.1, [] { QCoreApplication::quit(); });
    QTimer::singleShot(10s, [] { QCoreApplication::exit(1); });
    if (QCoreApplication::exec() != 0) {
        QTextStream(stderr) << "nothing was written to " << *options.root << '\n';
        return 1;
    }
    store.stopObserving();

    // The events of a series are returned one by one, each occurrence as an event.
    for (const auto& event :
        store.eventsFor(calendar->calendarIdentifier(), start, start + 31 * 24h).result())
        out << text(event->startDate()) << "  " << event->title() << '\n';

    if (const auto error = remind(options, u"Pack"_s, start + 14h)) {
        QTextStream(stderr) << error->description() << '\n';
        return 1;
    }
    ReminderStore reminders(options);
    if (!reminders.requestAccess().result())
        return 1;
    for (const auto& reminder : reminders.remindersFor(start, start + 31 * 24h).result())
        out << text(reminder->dueDate().value_or(start)) << "  to do: " << reminder->title() << '\n';
    return 0;
}
