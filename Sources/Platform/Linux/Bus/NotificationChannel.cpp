// SPDX-License-Identifier: MIT
#include "Platform/Linux/Bus/NotificationChannel.h"

#include <QDBusMessage>
#include <QPointer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

constexpr auto signalPath = "/com/quor_app/DistributedNotifications"_L1;
constexpr auto signalInterface = "com.quor_app.DistributedNotifications"_L1;
constexpr auto signalMember = "Posted"_L1;

// Qt writes the argument into the match rule without escaping, so that an apostrophe would end it, and in
// Latin-1, but the bus library aborts on bytes that are not ASCII. For names with such characters the rule
// has no argument: the bus then sends the posts of all names, and the channel compares.
QStringList argumentMatch(const QString& name)
{
    const bool survives
        = std::ranges::all_of(name, [](QChar c) { return c >= u' ' && c <= u'~' && c != u'\''; });
    return survives ? QStringList(name) : QStringList();
}

} // namespace

NotificationChannel::NotificationChannel(QDBusConnection bus, QString name)
    : bus_(std::move(bus))
    , name_(std::move(name))
{
    bus_.connect({}, signalPath, signalInterface, signalMember, argumentMatch(name_), u"s"_s, this,
        SLOT(posted(QString)));
}

NotificationChannel::~NotificationChannel()
{
    bus_.disconnect({}, signalPath, signalInterface, signalMember, argumentMatch(name_), u"s"_s, this,
        SLOT(posted(QString)));
}

void NotificationChannel::add(ObserverToken token, Handler handler)
{
    observers_.emplace(token, std::move(handler));
}

void NotificationChannel::remove(ObserverToken token)
{
    observers_.erase(token);
}

QDBusMessage NotificationChannel::signalFor(const QString& name)
{
    auto signal = QDBusMessage::createSignal(signalPath, signalInterface, signalMember);
    signal << name;
    return signal;
}

void NotificationChannel::posted(const QString& name)
{
    if (name != name_ || observers_.empty())
        return;
    const Notification notification{name};
    const auto last = observers_.rbegin()->first;
    const QPointer<NotificationChannel> self(this);
    auto token = ObserverToken(0);
    while (self) {
        const auto next = observers_.upper_bound(token);
        if (next == observers_.end() || next->first > last)
            return;
        token = next->first;
        next->second(notification);
    }
}

} // namespace quor::platform
