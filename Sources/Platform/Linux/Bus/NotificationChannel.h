// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Services/DistributedNotificationCenter.h"

#include <QDBusConnection>
#include <QObject>

#include <map>

namespace quor::platform {

/// The observers of one notification name, and the match rule for it on the bus, which exists as long as the
/// channel. Observers are called in the order of their tokens. A handler may add and remove observers and
/// destroy the channel. An observer that is added during a delivery gets the next post. Main thread only.
class NotificationChannel final : public QObject {
    Q_OBJECT

public:
    using Handler = Callback<void(const Notification&)>;
    using ObserverToken = DistributedNotificationCenter::ObserverToken;

    NotificationChannel(QDBusConnection bus, QString name);
    ~NotificationChannel() override;

    /// Adds an observer with a token that was not used before.
    void add(ObserverToken token, Handler handler);
    void remove(ObserverToken token); ///< Ignores a token that is not registered here.
    [[nodiscard]] bool isEmpty() const { return observers_.empty(); }

    /// Returns the signal that posts a notification.
    [[nodiscard]] static QDBusMessage signalFor(const QString& name);

private Q_SLOTS:
    void posted(const QString& name);

private:
    QDBusConnection bus_;
    QString name_;
    std::map<ObserverToken, Handler> observers_;
};

} // namespace quor::platform
