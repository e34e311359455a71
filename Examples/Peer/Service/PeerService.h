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

/// What `quor-peer serve` offers on the session bus, to the other commands and to whoever likes.
///
/// Tasks are told by identifier or by a name that only one of them has; times in seconds. What cannot
/// be done is answered with the error `com.quor_app.Peer.Refused` and a message for the user.
/// Borrows what it is given. Main thread only.
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
    /// The new tasks' identifiers, a line each. `color` is "RRGGBB", or empty for none. All or none are
    /// added.
    QString add(const QStringList& names, const QString& color);
    void start(const QString& task, double secondsAgo);
    /// An empty task means the one that runs.
    void stop(const QString& task, double secondsAgo);
    void stopAll(double secondsAgo);
    /// Each "key=value"; all or none are set.
    void set(const QStringList& assignments);
    QString list(); ///< JSON
    QString status(); ///< JSON
    void openMenu();
    void killHelper();

private:
    void refuse(const QString& message);
    /// Calls `change` with the identifier of the one task meant, else refuses.
    void withTask(const QString& text, const std::function<Outcome(const QString& taskID)>& change);
    /// Answers and publishes what has become of a change of the task.
    void conclude(Outcome outcome, const QString& task);
    [[nodiscard]] bool refuseWithoutHelper();

    Tracker& tracker_;
    Exchange& exchange_;
    const platform::Clock& clock_;
    const platform::Workspace& workspace_;
};

} // namespace quor::peer
