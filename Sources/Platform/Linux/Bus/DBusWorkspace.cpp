// SPDX-License-Identifier: MIT
#include "Platform/Linux/Bus/DBusWorkspace.h"

#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Linux/X11/X11Connection.h"
#include "Platform/Linux/X11/X11Focus.h"

#include <QDBusPendingReply>
#include <QDBusReply>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor::platform {

namespace {

constexpr std::chrono::milliseconds answerLimit = 1s;
constexpr auto shortLimit = 100ms; // for calls on which the user waits, and whose answer is not essential

// The well-known names, `nullopt` if the bus does not answer in time. The names of connections, which begin
// with a colon, are left out.
std::optional<QStringList> wellKnownNames(const QDBusConnection& bus, std::chrono::milliseconds limit)
{
    const QDBusReply<QStringList> reply
        = bus.call(SessionBus::callOfBus(u"ListNames"_s), QDBus::Block, int(limit.count()));
    if (!reply.isValid())
        return std::nullopt;
    QStringList names = reply.value();
    names.removeIf([](const QString& name) { return name.startsWith(u':'); });
    return names;
}

QDBusPendingReply<uint> requestOwner(const QDBusConnection& bus, const QString& name)
{
    return bus.asyncCall(
        SessionBus::callOfBus(u"GetConnectionUnixProcessID"_s, {name}), int(shortLimit.count()));
}

} // namespace

DBusWorkspace::DBusWorkspace(SessionBus& bus)
    : bus_(bus)
{
}

std::optional<std::vector<RunningApplication>> DBusWorkspace::runningApplications() const
{
    const auto names = wellKnownNames(bus_.connection(), answerLimit);
    if (!names)
        return std::nullopt;
    std::vector<RunningApplication> applications;
    for (const auto& name : *names)
        applications.push_back({name});
    return applications;
}

std::optional<RunningApplication> DBusWorkspace::frontmostApplication() const
{
    auto* connection = x11Connection();
    const auto window = connection ? activeWindow(connection) : std::nullopt;
    if (!window)
        return std::nullopt;
    const auto process = processOfWindow(connection, *window);
    return RunningApplication{process ? nameOwnedBy(*process) : QString(), *window};
}

QString DBusWorkspace::nameOwnedBy(std::uint32_t process) const
{
    const auto bus = bus_.connection();
    auto names = wellKnownNames(bus, shortLimit).value_or(QStringList());
    names.sort();
    std::vector<QDBusPendingReply<uint>> owners; // all requests are sent before the first reply is awaited
    for (const auto& name : names)
        owners.push_back(requestOwner(bus, name));
    for (qsizetype i = 0; i < names.size(); ++i) {
        auto& owner = owners[std::size_t(i)];
        owner.waitForFinished();
        if (owner.isValid() && owner.value() == process)
            return names[i];
    }
    return {};
}

void DBusWorkspace::activate(const RunningApplication& application)
{
    auto* connection = x11Connection();
    if (!connection)
        return;
    if (application.window != 0 && activateWindow(connection, xcb_window_t(application.window)))
        return;
    if (application.bundleIdentifier.isEmpty())
        return;
    auto owner = requestOwner(bus_.connection(), application.bundleIdentifier);
    owner.waitForFinished();
    const auto window = owner.isValid() ? windowOfProcess(connection, owner.value()) : std::nullopt;
    if (window)
        activateWindow(connection, *window);
}

} // namespace quor::platform
