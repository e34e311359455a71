// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/EventStoreChanges.h"

#include "Platform/Files/Folder.h"
#include "Platform/Lifetime/Callback.h"
#include "ToolKit/Calendar/Files/FolderWatch.h"
#include "ToolKit/Calendar/Stores/CalendarRoot.h"

#include <array>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace quor::toolkit {

namespace {

/// One subscription. The mutex is locked during each call, so that the end of the subscription waits for it.
struct Observer {
    std::recursive_mutex mutex;
    platform::Callback<void()> changed; ///< empty after the end of the subscription

    void call()
    {
        const std::scoped_lock lock(mutex);
        changed();
    }
    void end()
    {
        const std::scoped_lock lock(mutex);
        changed = nullptr;
    }
};

struct Observers {
    std::mutex mutex;
    std::map<int, std::shared_ptr<Observer>> list;
    int next = 0;
};

} // namespace

struct EventStoreChanges::State {
    explicit State(const QByteArray& root)
        : watch(root)
        , stop(eventfd(0, EFD_CLOEXEC))
    {
        (void)platform::makeFolder(root, S_IRWXU);
        (void)watch.list();
        thread = std::thread([this] { run(); });
    }

    ~State()
    {
        const std::uint64_t one = 1;
        (void)!write(stop.get(), &one, sizeof one);
        thread.join();
    }

    void run()
    {
        std::array<pollfd, 2> descriptors{
            pollfd{watch.descriptor(), POLLIN, 0}, pollfd{stop.get(), POLLIN, 0}};
        while (true) {
            if (poll(descriptors.data(), descriptors.size(), -1) < 0)
                continue; // interrupted by a signal
            if (descriptors[1].revents != 0)
                return;
            const FolderWatch::Changes changes = watch.drain();
            if (changes.folders)
                (void)watch.list();
            if (!changes.isEmpty())
                notify();
        }
    }

    void notify()
    {
        std::vector<std::shared_ptr<Observer>> current;
        {
            const std::scoped_lock lock(observers->mutex);
            for (const auto& [number, observer] : observers->list)
                current.push_back(observer);
        }
        for (const auto& observer : current)
            observer->call();
    }

    FolderWatch watch; ///< used by the thread alone, once it runs
    platform::FileDescriptor stop; ///< an event that ends the thread
    std::shared_ptr<Observers> observers = std::make_shared<Observers>();
    std::thread thread;
};

EventStoreChanges::EventStoreChanges(const EventStoreOptions& options)
    : state_(std::make_shared<State>(calendarRoot(options)))
{
}

EventStoreChanges::~EventStoreChanges()
{
    std::map<int, std::shared_ptr<Observer>> observers;
    {
        const std::scoped_lock lock(state_->observers->mutex);
        observers = std::exchange(state_->observers->list, {});
    }
    for (const auto& [number, observer] : observers)
        observer->end();
}

platform::Subscription EventStoreChanges::subscribe(std::function<void()> changed)
{
    auto observer = std::make_shared<Observer>();
    observer->changed = std::move(changed);
    const std::scoped_lock lock(state_->observers->mutex);
    const int number = state_->observers->next++;
    state_->observers->list.emplace(number, observer);
    return platform::Subscription([observers = std::weak_ptr(state_->observers), observer, number] {
        observer->end();
        if (const auto alive = observers.lock()) {
            const std::scoped_lock guard(alive->mutex);
            alive->list.erase(number);
        }
    });
}

} // namespace quor::toolkit
