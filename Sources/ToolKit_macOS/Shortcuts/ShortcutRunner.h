// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/ShortcutsService.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quor::platform {
class OperationQueue;
}

namespace quor::toolkit {

using platform::Shortcut;

/// Lists the user's automations and runs them, one after the other, on a thread of its own. Main thread only.
///
/// It can be destroyed at any time, without waiting: a shortcut that runs then goes on to its end, one that
/// waits does not start.
class ShortcutRunner final {
public:
    /// A shortcut to run, with or without an input.
    struct Action {
        QString id;
        std::optional<QString> input;
    };
    using Completion = std::function<void(const std::vector<Shortcut>&)>;

    explicit ShortcutRunner(std::shared_ptr<platform::ShortcutsService> service);
    ~ShortcutRunner();
    ShortcutRunner(const ShortcutRunner&) = delete;
    ShortcutRunner& operator=(const ShortcutRunner&) = delete;

    /// Whether the service can be reached. Starts nothing.
    [[nodiscard]] bool isAvailable() const;

    /// Shows the user the program in which shortcuts are edited. Failures are ignored.
    void launchShortcutsApplication();

    /// Calls `completion` with all shortcuts, sorted by folder and then by name. If the list is known and not
    /// empty, the call is made at once; else later, in the order of the requests, after one listing for all
    /// of them. The list is empty if the service cannot be reached. A completion may destroy the runner.
    void loadShortcuts(Completion completion);

    /// Forgets the list, and all runs that have not begun. Completions that still wait are called after the
    /// next listing.
    void clearCache();

    /// Runs shortcuts after those that were requested before, each after the end of the one before it.
    /// Failures are ignored, and so are ids that do not exist.
    void run(const Action& action);
    void run(const std::vector<Action>& actions);

private:
    struct Loading;

    std::shared_ptr<platform::ShortcutsService> service_; // shared with operations that outlive the runner
    std::shared_ptr<platform::OperationQueue> operationQueue_;
    std::shared_ptr<Loading> loading_;
};

} // namespace quor::toolkit
