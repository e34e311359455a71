// SPDX-License-Identifier: MIT
// A calendar file as another program may have written it: read, listed, edited, written and read again.
#include "ToolKit/Calendar/Stores/EventStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

/// The folder of one fuzzing process.
class Folder final {
public:
    Folder() { require(QDir(root_.path()).mkpath(u"local/work"_s)); }

    [[nodiscard]] EventStoreOptions options() const
    {
        return {root_.path(), [](auto) { return AuthorizationStatus::fullAccess; }};
    }
    void fill(const std::uint8_t* bytes, std::size_t size) const
    {
        QDir folder(root_.filePath(u"local/work"_s));
        for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden))
            require(folder.remove(name));
        QFile file(folder.filePath(u"item.ics"_s));
        require(file.open(QIODevice::WriteOnly));
        require(file.write(reinterpret_cast<const char*>(bytes), qint64(size)) == qint64(size));
    }

private:
    QTemporaryDir root_{u"/dev/shm/CalendarFuzzer-XXXXXX"_s}; // in memory: a disk would take most of the time
};

std::vector<std::shared_ptr<Event>> year(EventStore& store)
{
    constexpr double start = 1'767'225'600; // 2026
    return store.eventsMatching(store.predicateForEvents(
        quor::platform::dateFromSeconds(start), quor::platform::dateFromSeconds(start + 366 * 86'400.0)));
}

void editFirst(const Folder& folder, EventStore& store, const std::vector<std::shared_ptr<Event>>& events)
{
    const auto& event = events.front();
    const QString title = u"Changed; by, us\\n\n"_s;
    event->setTitle(title);
    if (const auto failure = store.saveEvent(event, EventSpan::thisEvent, true)) {
        // The save fails if two items with one identifier disagree, but never for an unknown reason.
        require(failure->kind() != EventStoreError::Kind::failed);
        return;
    }
    EventStore again(folder.options());
    bool isFound = false;
    for (const auto& each : year(again))
        isFound = isFound || each->title() == event->title();
    require(isFound);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const Folder folder;
    folder.fill(bytes, size);
    EventStore store(folder.options());
    const auto events = year(store);
    if (events.empty())
        return 0;
    editFirst(folder, store, events);
    (void)store.saveEvent(events.back(), EventSpan::futureEvents, true);
    (void)store.removeEvent(events.back(), size % 2 ? EventSpan::thisEvent : EventSpan::futureEvents, true);
    (void)year(store);
    return 0;
}
