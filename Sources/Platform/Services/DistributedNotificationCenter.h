// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace quor::platform {

/// What an observer is told: the name alone. Nothing else travels with a notification.
struct Notification {
    QString name;
};

/// Named signals without payload between the processes of one desktop session.
///
/// A post reaches every observer of that exact name, in the poster's own process too, and is lost
/// where nobody observes. Posts of one process arrive in the order in which it made them; handlers
/// run on the main thread, from the event loop. Main thread only.
class DistributedNotificationCenter {
public:
    using Handler = std::function<void(const Notification&)>;
    /// Names one registration. Never reused within a process.
    enum class ObserverToken : std::uint64_t {};

    virtual ~DistributedNotificationCenter() = default;

    virtual void post(const QString& name) = 0;

    /// Calls `handler` at each post of `name` until the token is removed or the centre goes.
    [[nodiscard]] virtual ObserverToken addObserver(const QString& name, Handler handler) = 0;

    /// Ends the registration: its handler is not called again, not even for posts already on their
    /// way. A token that is not registered does nothing. May be called from within a handler.
    virtual void removeObserver(ObserverToken token) = 0;
};

} // namespace quor::platform
