// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/AppMover/AppMover.h"

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Resources/Bundle.h"
#include "Platform/Services/Application.h"
#include "ToolKit_macOS/Alert.h"
#include "ToolKit_macOS/AppMover/ApplicationFolders.h"

#include <QApplication>
#include <QTimer>

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using quor::platform::ApplicationInstaller;
using quor::platform::InstallResult;

namespace quor::toolkit {

namespace {

constexpr int moveTag = 1;

const platform::Bundle& texts()
{
    static const auto bundle = platform::Bundle::named(u"Cabinet_ToolKit_macOS"_s);
    return bundle;
}

QString applicationName()
{
    const QString name = QGuiApplication::applicationDisplayName();
    return name.isEmpty() ? u"The App"_s : name;
}

bool isThere(const QByteArray& path)
{
    struct stat status { };
    return ::lstat(path.constData(), &status) == 0;
}

bool isWritable(const QByteArray& path)
{
    return ::faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) == 0;
}

/// Whether the folder can be written, or made in a folder that can.
bool canWriteIn(QByteArray folder)
{
    while (!isThere(folder) && folder.lastIndexOf('/') > 0)
        folder.truncate(folder.lastIndexOf('/'));
    return isWritable(folder);
}

/// Shows an alert and returns the tag of the button that ended it.
int run(Alert& alert, platform::Application& application)
{
    int chosen = Alert::cancelTag;
    alert.ended = [&](int tag) { chosen = tag; };
    if (const QIcon icon = QApplication::windowIcon(); !icon.isNull())
        alert.setAlertIcon(icon);
    if (QGuiApplication::applicationState() != Qt::ApplicationActive)
        QTimer::singleShot(0, &alert, [&] { application.activate(alert); });
    alert.exec();
    return chosen;
}

bool agrees(const AppMover::Plan& plan, platform::Application& application)
{
    Alert alert;
    QString info = texts().localizedString(u"AppMoverInfo"_s, {applicationName()});
    if (plan.needsAuthorization)
        info += texts().localizedString(u"AppMoverAuth"_s);
    alert.setMessageText(texts().localizedString(u"AppMoverTitle"_s));
    alert.setInformativeText(info);
    alert.addButton(texts().localizedString(u"AppMoverMoveButton"_s), moveTag);
    alert.addButton(texts().localizedString(u"AppMoverCancelButton"_s), Alert::cancelTag);
    return run(alert, application) == moveTag;
}

void explain(const InstallResult& result, platform::Application& application)
{
    Alert alert;
    alert.setMessageText(texts().localizedString(u"AppMoverFailed"_s, {applicationName()}));
    alert.setInformativeText(result.reason);
    alert.addButton(texts().localizedString(u"AppMoverClose"_s), Alert::cancelTag);
    run(alert, application);
}

/// The copy is at the target.
void finish(ApplicationInstaller& installer, const AppMover::Plan& plan)
{
    installer.removeDownloadMarks(plan.target.path);
    (void)installer.open(plan.target, ApplicationInstaller::Start::afterThisProcess);
    platform::MainQueue::async([&installer, path = plan.bundle.path] {
        installer.remove(path);
        std::exit(0); // NOLINT(concurrency-mt-unsafe): the flow ends here, whatever else runs
    });
}

void moveAsUser(
    ApplicationInstaller& installer, const AppMover::Plan& plan, platform::Application& application)
{
    using Ending = ApplicationInstaller::Ending;
    if (plan.replaces && installer.endPrograms(plan.target) == Ending::refused) {
        (void)installer.open(plan.target, ApplicationInstaller::Start::now);
        return;
    }
    const InstallResult result = installer.install(plan.bundle.path, plan.target.path);
    if (result.kind == InstallResult::Kind::installed)
        finish(installer, plan);
    else
        explain(result, application);
}

} // namespace

std::optional<AppMover::Plan> AppMover::plan(const ApplicationInstaller& installer)
{
    const auto folders = installer.applicationFolders();
    const auto bundle = installer.runningBundle();
    if (!bundle || isInApplicationsFolder(bundle->path, folders))
        return std::nullopt;
    const auto folder = preferredInstallDirectory(folders);
    if (!folder)
        return std::nullopt;
    const QByteArray target = *folder + bundle->path.mid(bundle->path.lastIndexOf('/'));
    const bool replaces = isThere(target);
    return Plan{*bundle, {target, bundle->program}, replaces,
        (replaces && !isWritable(target)) || !canWriteIn(*folder)};
}

void AppMover::moveIfNeeded(ApplicationInstaller& installer, platform::Application& application)
{
    for (;;) {
        const auto plan = AppMover::plan(installer);
        if (!plan || !agrees(*plan, application))
            return;
        moveInProgress = true;
        if (!plan->needsAuthorization)
            return moveAsUser(installer, *plan, application);
        const InstallResult result = installer.installAsAdministrator(plan->bundle.path, plan->target.path);
        switch (result.kind) {
        case InstallResult::Kind::installed:
            return finish(installer, *plan);
        case InstallResult::Kind::failed:
            explain(result, application);
            return application.terminate();
        case InstallResult::Kind::cancelled:
            break; // the user may change their mind
        }
    }
}

} // namespace quor::toolkit
