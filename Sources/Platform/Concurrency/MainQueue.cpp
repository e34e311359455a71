// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/MainQueue.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <future>
#include <limits>
#include <utility>

namespace quor::platform {

namespace {

constexpr std::chrono::milliseconds longestDelay(std::numeric_limits<int>::max()); // the limit of QTimer

} // namespace

struct WorkItem::Pending {
    QTimer timer;
    std::function<void()> work;

    // Also stops the timer, as a cancelled item must not wake the process later, and breaks the connection
    // that keeps this object alive.
    std::function<void()> take()
    {
        timer.stop();
        QObject::disconnect(&timer, nullptr, nullptr, nullptr);
        return std::exchange(work, nullptr);
    }
};

WorkItem::WorkItem(std::shared_ptr<Pending> pending)
    : pending_(std::move(pending))
{
}

void WorkItem::cancel()
{
    if (const auto pending = std::exchange(pending_, nullptr))
        pending->take();
}

bool WorkItem::isPending() const
{
    return pending_ && pending_->work;
}

void MainQueue::async(std::function<void()> work)
{
    auto* const application = QCoreApplication::instance();
    if (application && work)
        QMetaObject::invokeMethod(application, std::move(work), Qt::QueuedConnection);
}

void MainQueue::sync(const std::function<void()>& work)
{
    const auto* const application = QCoreApplication::instance();
    if (!application || !work)
        return;
    if (application->thread() == QThread::currentThread())
        return work();
    // If the queue drops the work, it destroys the promise, which ends the wait too.
    auto promise = std::make_shared<std::promise<void>>();
    const auto done = promise->get_future();
    async([&work, promise = std::move(promise)] {
        work();
        promise->set_value();
    });
    done.wait();
}

WorkItem MainQueue::after(std::chrono::milliseconds delay, std::function<void()> work)
{
    auto pending = std::make_shared<WorkItem::Pending>();
    pending->work = std::move(work);
    pending->timer.setSingleShot(true);
    pending->timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pending->timer, &QTimer::timeout, QCoreApplication::instance(), [pending] {
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const auto alive = pending; // take() breaks the connection that holds this closure
        if (const auto run = alive->take())
            run();
    });
    pending->timer.start(std::clamp(delay, std::chrono::milliseconds::zero(), longestDelay));
    return WorkItem(std::move(pending));
}

} // namespace quor::platform
