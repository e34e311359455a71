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

/// The folder of the data, made where missing, for this user's eyes only; none if that fails.
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
        [] { printError(u"a change could not be written to disk; it will be with a later one"_s); }};
}

/// Empty once the name is ours.
QString claimName(SessionBus& bus)
{
    switch (bus.claim(PeerService::serviceName)) {
    case SessionBus::Claim::claimed:
        return {};
    case SessionBus::Claim::taken:
        return u"another main application serves on this session bus already"_s;
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
        return fail(u"the data folder cannot be made, or is not this user's"_s);

    const platform::SystemClock clock;
    platform::DBusNotificationCenter center(bus);
    const platform::DBusWorkspace workspace(bus);
    Store store(*folder);
    Tracker tracker(clock, store);
    Exchange exchange(tracker, clock, center, menuTexts(), handlers());
    PeerService service(tracker, exchange, clock, workspace);

    // On the bus before it has the name, so that whoever sees the name is answered.
    bus.connection().registerObject(PeerService::path, &service, QDBusConnection::ExportAllSlots);
    if (const QString problem = claimName(bus); !problem.isEmpty())
        return fail(problem);
    QObject::connect(&bus, &SessionBus::disconnected, &service, [] {
        printError(u"the session bus has gone"_s);
        QCoreApplication::exit(failed);
    });
    tracker.load();
    exchange.begin();
    print(u"serving as "_s + PeerService::serviceName);
    return QCoreApplication::exec();
}

} // namespace quor::peer
