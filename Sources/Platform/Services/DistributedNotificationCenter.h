// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace quor::platform {

/// A notification, as passed to observers. It consists of its name only.
struct Notification {
    QString name;
};

/// Exchanges named signals without payload between the processes of one desktop session.
///
/// A post reaches every observer of exactly its name, including observers in the posting process. A post
/// without observers is lost. The posts of one process arrive in the order in which they were made.
/// Handlers run on the main thread, from the event loop. Main thread only.
class DistributedNotificationCenter {
public:
    using Handler = std::function<void(const Notification&)>;
    /// Identifies one registration at its notification centre, which never uses a token twice.
    enum class ObserverToken : std::uint64_t {};

    virtual ~DistributedNotificationCenter() = default;

    virtual void post(const QString& name) = 0;

    /// Calls `handler` for each post of `name`, until the returned token is passed to `removeObserver` or
    /// this object is destroyed. A handler may add and remove observers and destroy this object.
    [[nodiscard]] virtual ObserverToken addObserver(const QString& name, Handler handler) = 0;

    /// Ends the registration. Its handler is not called again, not even for posts that have been made
    /// but not delivered. A token that is not registered is ignored.
    virtual void removeObserver(ObserverToken token) = 0;
};

} // namespace quor::platform
