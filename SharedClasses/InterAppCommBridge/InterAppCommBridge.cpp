// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/InterAppCommBridge.h"

#include "ToolKit/Logging/Logger.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

// For the log. A closure has no better description that is the same with every compiler.
QString description(const platform::DistributedNotificationCenter::Handler& handler)
{
    return handler ? u"(Function)"_s : u"(none)"_s;
}

} // namespace

InterAppCommBridge::InterAppCommBridge(platform::DistributedNotificationCenter& center)
    : center_(center)
{
}

void InterAppCommBridge::postNotification(InterAppNotification notification) const
{
    const QString name = quor::name(notification);
    toolkit::Logger::log(u"notification: "_s + name, true);
    center_.post(name);
}

platform::DistributedNotificationCenter::ObserverToken InterAppCommBridge::registerForNotification(
    InterAppNotification notification, platform::DistributedNotificationCenter::Handler handler) const
{
    const QString name = quor::name(notification);
    toolkit::Logger::log(u"registerForNotification: "_s + name + u' ' + description(handler), true);
    return center_.addObserver(name, std::move(handler));
}

} // namespace quor
