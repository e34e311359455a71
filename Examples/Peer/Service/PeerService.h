// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QDBusContext>
#include <QObject>
#include <QStringList>

#include <functional>

namespace quor::platform {
class Workspace;
}

namespace quor::peer {

class Exchange;
class Tracker;
enum class Outcome;

/// The D-Bus interface of `quor-peer serve`, used by the other commands and open to any program.
///
/// A parameter `task` is a task's identifier, or a name that only one task has. Times are in seconds. A
/// request that cannot be carried out is answered with the error `com.quor_app.Peer.Refused` and a message
/// for the user. The arguments of the constructor are borrowed and must outlive it. Main thread only.
class PeerService final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.quor_app.Peer")

public:
    static const QString serviceName; ///< the main application's, on the bus
    static const QString path;
    static const QString interfaceName;
    static const QString refusedError;

    PeerService(Tracker& tracker, Exchange& exchange, const platform::Clock& clock,
        const platform::Workspace& workspace);

public Q_SLOTS:
    /// Adds a task for each name and returns their identifiers, one per line. `color` is "RRGGBB", or empty
    /// for no colour. If one name is refused, no task is added.
    QString add(const QStringList& names, const QString& color);
    void start(const QString& task, double secondsAgo);
    /// An empty `task` means the one whose timer runs; refused if several run.
    void stop(const QString& task, double secondsAgo);
    void stopAll(double secondsAgo);
    /// Sets settings, each written as "key=value". If one is refused, none is set.
    void set(const QStringList& assignments);
    QString list(); ///< returns `taskReport` as JSON
    QString status(); ///< returns `statusReport` as JSON
    void openMenu();
    void killHelper();

private:
    void refuse(const QString& message);
    /// Calls `change` with the identifier of the task that `text` means. Refuses if `text` means no task, or
    /// several.
    void withTask(const QString& text, const std::function<Outcome(const QString& taskID)>& change);
    /// Publishes the changed state, and answers the caller if the change failed.
    void conclude(Outcome outcome, const QString& task);
    /// Refuses if the helper does not run. Returns whether it refused.
    [[nodiscard]] bool refuseWithoutHelper();

    Tracker& tracker_;
    Exchange& exchange_;
    const platform::Clock& clock_;
    const platform::Workspace& workspace_;
};

} // namespace quor::peer
