// SPDX-License-Identifier: MIT
// An application that offers to move itself into the folder for applications. Put it into a folder of the
// name Example.app and start it there. With --dry-run it prints what it would do.
#include <Platform/Linux/Applications/DesktopApplicationInstaller.h>
#include <Platform/Linux/DesktopPlatform.h>
#include <Platform/Linux/QtApplication.h>
#include <ToolKit_macOS/AppMover/AppMover.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QLabel>

#include <cstdio>

using namespace quor;
using namespace Qt::StringLiterals;

namespace {

constexpr int misused = 2;

void printPlan(const platform::ApplicationInstaller& installer)
{
    const auto plan = toolkit::AppMover::plan(installer);
    if (!plan) {
        std::puts("nothing to move");
        return;
    }
    std::printf("move %s\nto %s\n", plan->bundle.path.constData(), plan->target.path.constData());
    if (plan->replaces)
        std::puts("replace what is there");
    if (plan->needsAuthorization)
        std::puts("ask for the password of an administrator");
    std::printf("start %s\n", plan->target.programPath().constData());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && QByteArrayView(argv[1]) == "--dry-run") {
        const QCoreApplication application(argc, argv);
        printPlan(platform::DesktopApplicationInstaller());
        return 0;
    }
    if (argc > 1) {
        std::fputs("usage: quor-mover [--dry-run]\n", stderr);
        return misused;
    }
    if (const auto reason = platform::chooseDesktopPlatform(argc, argv)) {
        std::fprintf(stderr, "quor-mover: %s\n", qPrintable(*reason));
        return 1;
    }
    const QApplication qtApplication(argc, argv);
    QApplication::setApplicationDisplayName(u"Mover"_s);
    platform::QtApplication application;
    platform::DesktopApplicationInstaller installer;
    QLabel window(u"Running from "_s + QFile::decodeName(argv[0]));
    window.setMargin(20);
    window.show();
    QMetaObject::invokeMethod(
        qApp, [&] { toolkit::AppMover::moveIfNeeded(installer, application); }, Qt::QueuedConnection);
    return QApplication::exec();
}
