// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/DistributedNotificationCenter.h"

#include <QDBusConnection>
#include <QObject>

#include <map>

namespace quor::platform {

/// The observers of one notification name, and the match rule on the bus that serves them all for as
/// long as the channel lives. Observers are called in the order of their tokens. A handler may add
/// and remove observers, and may end the channel; one added during a delivery waits for the next.
class NotificationChannel final : public QObject {
    Q_OBJECT

public:
    using Handler = DistributedNotificationCenter::Handler;
    using ObserverToken = DistributedNotificationCenter::ObserverToken;

    NotificationChannel(QDBusConnection bus, QString name);
    ~NotificationChannel() override;

    void add(ObserverToken token, Handler handler);
    void remove(ObserverToken token);
    [[nodiscard]] bool isEmpty() const { return observers_.empty(); }

    [[nodiscard]] static QDBusMessage signalFor(const QString& name);

private Q_SLOTS:
    void posted(const QString& name);

private:
    QDBusConnection bus_;
    QString name_;
    std::map<ObserverToken, Handler> observers_;
};

} // namespace quor::platform
