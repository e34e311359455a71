// SPDX-License-Identifier: MIT
#include "Platform/Linux/DBusWorkspace.h"

#include "Platform/Linux/SessionBus.h"

#include <QDBusMessage>
#include <QDBusReply>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor::platform {

namespace {

constexpr auto busService = "org.freedesktop.DBus"_L1;
constexpr std::chrono::milliseconds answerLimit = 1s;

} // namespace

DBusWorkspace::DBusWorkspace(SessionBus& bus)
    : bus_(bus)
{
}

std::vector<RunningApplication> DBusWorkspace::runningApplications() const
{
    const auto request
        = QDBusMessage::createMethodCall(busService, "/org/freedesktop/DBus"_L1, busService, "ListNames"_L1);
    const QDBusReply<QStringList> names
        = bus_.connection().call(request, QDBus::Block, int(answerLimit.count()));
    std::vector<RunningApplication> applications;
    for (const auto& name : names.value()) {
        if (!name.startsWith(u':')) // connections bear unique names, applications chosen ones
            applications.push_back({name});
    }
    return applications;
}

std::optional<RunningApplication> DBusWorkspace::frontmostApplication() const
{
    return std::nullopt;
}

void DBusWorkspace::activate(const RunningApplication&) { }

} // namespace quor::platform
