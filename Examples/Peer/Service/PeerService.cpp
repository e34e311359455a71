// SPDX-License-Identifier: MIT
#include "Peer/Service/PeerService.h"

#include "Peer/Model/RecordJSON.h"
#include "Peer/Model/Reports.h"
#include "Peer/Model/TaskLookup.h"
#include "Peer/Model/Tracker.h"
#include "Peer/Service/Exchange.h"
#include "Platform/Services/Workspace.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace quor::peer {

const QString PeerService::serviceName = u"com.quor-app.Quor3-macOS"_s;
const QString PeerService::path = u"/com/quor_app/Peer"_s;
const QString PeerService::interfaceName = u"com.quor_app.Peer"_s;
const QString PeerService::refusedError = u"com.quor_app.Peer.Refused"_s;

namespace {

std::optional<QString> problem(Outcome outcome, const QString& task)
{
    switch (outcome) {
    case Outcome::done:
        return std::nullopt;
    case Outcome::notStored:
        return u"the change was made but could not be written to disk; it will be written with a later change"_s;
    case Outcome::unknownTask:
        return u"there is no task \"%1\""_s.arg(task);
    case Outcome::alreadyRunning:
        return u"the timer of \"%1\" is already running"_s.arg(task);
    case Outcome::notRunning:
        return u"the timer of \"%1\" is not running"_s.arg(task);
    }
    Q_UNREACHABLE();
}

} // namespace

PeerService::PeerService(
    Tracker& tracker, Exchange& exchange, const platform::Clock& clock, const platform::Workspace& workspace)
    : tracker_(tracker)
    , exchange_(exchange)
    , clock_(clock)
    , workspace_(workspace)
{
}

QString PeerService::add(const QStringList& names, const QString& color)
{
    const auto value = colorFromText(color);
    if (!value && !color.isEmpty()) {
        refuse(u"\"%1\" is not a colour; write six hexadecimal digits, as in F58C6E"_s.arg(color));
        return {};
    }
    QStringList trimmed;
    for (const QString& name : names)
        trimmed += name.trimmed();
    if (trimmed.isEmpty() || trimmed.contains(QString())) {
        refuse(u"the name of a task must not be empty"_s);
        return {};
    }
    conclude(tracker_.addTasks(trimmed, value), {});
    QStringList ids;
    for (std::size_t i = tracker_.tasks().size() - std::size_t(trimmed.size()); i < tracker_.tasks().size();
         ++i)
        ids += tracker_.tasks()[i].id;
    return ids.join(u'\n');
}

void PeerService::start(const QString& task, double secondsAgo)
{
    withTask(task, [&](const QString& taskID) { return tracker_.start(taskID, secondsAgo); });
}

void PeerService::stop(const QString& task, double secondsAgo)
{
    QString target = task;
    if (target.isEmpty()) {
        const auto running = tracker_.runningEntries();
        if (running.size() != 1) {
            refuse(running.empty()
                    ? u"no timer is running"_s
                    : u"%1 timers are running; name a task, or stop all"_s.arg(running.size()));
            return;
        }
        target = running.front().taskID;
    }
    withTask(target, [&](const QString& taskID) { return tracker_.stop(taskID, -secondsAgo); });
}

void PeerService::stopAll(double secondsAgo)
{
    conclude(tracker_.stopAll(-secondsAgo), {});
}

void PeerService::set(const QStringList& assignments)
{
    Settings settings = tracker_.settings();
    for (const QString& assignment : assignments) {
        const qsizetype equals = assignment.indexOf(u'=');
        if (equals < 0) {
            refuse(u"\"%1\" is not of the form KEY=VALUE"_s.arg(assignment));
            return;
        }
        if (const auto problem = assign(settings, assignment.left(equals), assignment.mid(equals + 1))) {
            refuse(*problem);
            return;
        }
    }
    const Outcome outcome = tracker_.setSettings(settings);
    exchange_.publishSettings();
    if (const auto reason = problem(outcome, {}))
        refuse(*reason);
}

QString PeerService::list()
{
    return QString::fromUtf8(
        QJsonDocument(taskReport(tracker_, clock_.now())).toJson(QJsonDocument::Compact));
}

QString PeerService::status()
{
    return QString::fromUtf8(
        QJsonDocument(statusReport(tracker_, clock_.now())).toJson(QJsonDocument::Compact));
}

void PeerService::openMenu()
{
    if (!refuseWithoutHelper())
        exchange_.openMenu();
}

void PeerService::killHelper()
{
    if (!refuseWithoutHelper())
        exchange_.killHelper();
}

void PeerService::refuse(const QString& message)
{
    sendErrorReply(refusedError, message);
}

void PeerService::withTask(const QString& text, const std::function<Outcome(const QString& taskID)>& change)
{
    const auto meant = tasksMeant(tracker_.tasks(), text);
    if (meant.empty()) {
        refuse(u"there is no task \"%1\""_s.arg(text));
        return;
    }
    if (meant.size() > 1) {
        QStringList ids;
        for (const Task* const task : meant)
            ids.append(task->id);
        refuse(u"\"%1\" is the name of several tasks; use one of their identifiers: %2"_s.arg(
            text, ids.join(u", "_s)));
        return;
    }
    conclude(change(QString(meant.front()->id)), text);
}

void PeerService::conclude(Outcome outcome, const QString& task)
{
    if (outcome == Outcome::done || outcome == Outcome::notStored)
        exchange_.publish();
    if (const auto reason = problem(outcome, task))
        refuse(*reason);
}

bool PeerService::refuseWithoutHelper()
{
    const bool runs = platform::isApplicationRunning(workspace_, exchange_.helperBundleID()).value_or(true);
    if (!runs)
        refuse(u"the helper is not running"_s);
    return !runs;
}

} // namespace quor::peer
