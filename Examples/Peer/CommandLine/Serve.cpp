// SPDX-License-Identifier: MIT
#include "Peer/CommandLine/Serve.h"

#include "Peer/CommandLine/Output.h"
#include "Peer/Model/Store.h"
#include "Peer/Model/Tracker.h"
#include "Peer/Service/Exchange.h"
#include "Peer/Service/PeerService.h"
#include "Platform/Linux/Bus/DBusNotificationCenter.h"
#include "Platform/Linux/Bus/DBusWorkspace.h"
#include "Platform/Linux/Bus/SessionBus.h"
#include "Platform/Preferences/DataHome.h"
#include "Platform/Resources/Bundle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using quor::platform::SessionBus;

namespace quor::peer {

namespace {

/// The folder of the data, readable by this user only; created if it is missing. Returns `nullopt` if that
/// fails.
std::optional<QString> dataFolder()
{
    const auto home = platform::dataHome();
    if (!home)
        return std::nullopt;
    const QString folder = QFile::decodeName(*home) + u'/' + PeerService::serviceName;
    if (!QDir().mkpath(folder)
        || !QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return std::nullopt;
    return folder;
}

MenuTexts menuTexts()
{
    const auto bundle = platform::Bundle::named(u"QuorPeer"_s);
    return {bundle.localizedString(u"MenuRunning"_s), bundle.localizedString(u"MenuRecent"_s),
        bundle.localizedString(u"MenuAllTasks"_s), bundle.localizedString(u"MenuNoMatch"_s),
        bundle.localizedString(u"MenuShowApplication"_s), bundle.localizedString(u"MenuQuitApplication"_s)};
}

Exchange::Handlers handlers()
{
    return {[] { print(u"asked to come to the front"_s); },
        [] {
            print(u"asked to quit"_s);
            QCoreApplication::quit();
        },
        [] {
            printError(u"a change could not be written to disk; it will be written with a later change"_s);
        }};
}

/// Claims the main application's name on the bus. Returns an empty text, or an error for the user.
QString claimName(SessionBus& bus)
{
    switch (bus.claim(PeerService::serviceName)) {
    case SessionBus::Claim::claimed:
        return {};
    case SessionBus::Claim::taken:
        return u"another main application already serves on this session bus"_s;
    case SessionBus::Claim::failed:
        return u"the session bus does not answer"_s;
    }
    Q_UNREACHABLE();
}

int fail(const QString& reason)
{
    printError(reason);
    return failed;
}

} // namespace

int serve(const QCommandLineParser&, const QStringList&)
{
    SessionBus bus;
    if (!bus.isConnected())
        return fail(u"there is no session bus"_s);
    const auto folder = dataFolder();
    if (!folder)
        return fail(u"the data folder cannot be created, or belongs to another user"_s);

    const platform::SystemClock clock;
    platform::DBusNotificationCenter center(bus);
    const platform::DBusWorkspace workspace(bus);
    Store store(*folder);
    Tracker tracker(clock, store);
    Exchange exchange(tracker, clock, center, menuTexts(), handlers());
    PeerService service(tracker, exchange, clock, workspace);

    // Registered before the name is claimed, so that the first caller that sees the name gets an answer.
    bus.connection().registerObject(PeerService::path, &service, QDBusConnection::ExportAllSlots);
    if (const QString problem = claimName(bus); !problem.isEmpty())
        return fail(problem);
    QObject::connect(&bus, &SessionBus::disconnected, &service, [] {
        printError(u"the connection to the session bus was lost"_s);
        QCoreApplication::exit(failed);
    });
    tracker.load();
    exchange.begin();
    print(u"serving as "_s + PeerService::serviceName);
    return QCoreApplication::exec();
}

} // namespace quor::peer
