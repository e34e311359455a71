// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/Shortcuts/ShortcutRunner.h"

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Concurrency/OperationQueue.h"
#include "ToolKit/Logging/Logger.h"

#include <algorithm>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;
using quor::platform::MainQueue;
using quor::platform::OperationQueue;
using quor::platform::ShortcutsService;

namespace quor::toolkit {

namespace {

void log(const QString& message, bool toFile, int line = __builtin_LINE())
{
    Logger::log(message, __FILE__, "run(actions:)", line, toFile);
}

std::vector<Shortcut> sortedShortcuts(const ShortcutsService& service)
{
    auto shortcuts = service.shortcuts();
    std::sort(shortcuts.begin(), shortcuts.end(), [](const Shortcut& a, const Shortcut& b) {
        return std::tie(a.folder, a.name, a.id) < std::tie(b.folder, b.name, b.id);
    });
    return shortcuts;
}

void runAction(ShortcutsService& service, const ShortcutRunner::Action& action)
{
    QString name;
    std::optional<QString> result;
    if (const auto shortcut = service.shortcutWithId(action.id); shortcut && shortcut->id == action.id) {
        name = shortcut->name;
        result = service.run(action.id, action.input);
    }
    log(name + " input: "_L1 + action.input.value_or(QString()), false);
    log("result: "_L1 + result.value_or(QString()), false);
}

} // namespace

// Outlives the runner while a listing is under way.
struct ShortcutRunner::Loading {
    void callCompletions()
    {
        // Copies, as a completion may load again or clear the cache.
        const auto shortcuts = shortcutCache;
        for (const auto& completion : std::exchange(loadShortcutCompletionHandlers, {}))
            completion(shortcuts);
    }

    std::vector<Shortcut> shortcutCache; // empty if not known
    bool isLoading = false;
    std::vector<Completion> loadShortcutCompletionHandlers;
};

ShortcutRunner::ShortcutRunner(std::shared_ptr<ShortcutsService> service)
    : service_(std::move(service))
    , operationQueue_(std::make_shared<OperationQueue>(1))
    , loading_(std::make_shared<Loading>())
{
}

ShortcutRunner::~ShortcutRunner()
{
    // The end of a queue waits for its operations, so an operation ends it after the shortcut that runs.
    operationQueue_->cancelAll();
    operationQueue_->setSuspended(false);
    operationQueue_->add([queue = operationQueue_] {});
}

bool ShortcutRunner::isAvailable() const
{
    return service_->isAvailable();
}

void ShortcutRunner::launchShortcutsApplication()
{
    service_->launchApplication();
}

void ShortcutRunner::loadShortcuts(Completion completion)
{
    const auto loading = loading_; // a completion may destroy this runner
    loading->loadShortcutCompletionHandlers.push_back(std::move(completion));
    if (loading->isLoading)
        return;
    if (!loading->shortcutCache.empty()) {
        loading->callCompletions();
        return;
    }
    loading->isLoading = true;
    operationQueue_->setSuspended(false);
    operationQueue_->add([weakLoading = std::weak_ptr(loading), service = service_] {
        auto shared = weakLoading.lock();
        if (!shared)
            return;
        MainQueue::async([shared = std::move(shared), shortcuts = sortedShortcuts(*service)] {
            shared->shortcutCache = shortcuts;
            shared->isLoading = false;
            shared->callCompletions();
        });
    });
}

void ShortcutRunner::clearCache()
{
    loading_->shortcutCache.clear();
    loading_->isLoading = false;
    operationQueue_->cancelAll();
    operationQueue_->setSuspended(false);
}

void ShortcutRunner::run(const Action& action)
{
    run(std::vector{action});
}

void ShortcutRunner::run(const std::vector<Action>& actions)
{
    if (actions.empty())
        return;
    if (!service_->canRun()) {
        log(u"Can't run Shortcut on older macOS"_s, true);
        return;
    }
    for (const auto& action : actions) {
        operationQueue_->add([alive = std::weak_ptr(loading_), service = service_, action] {
            if (!alive.expired())
                runAction(*service, action);
        });
    }
}

} // namespace quor::toolkit
