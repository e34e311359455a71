// SPDX-License-Identifier: MIT
#include "AppDelegate.h"
#include "Platform/Linux/DesktopPlatform.h"
#include "Platform/Linux/LinuxServices.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

namespace platform = quor::platform;
using namespace Qt::StringLiterals;

namespace {

void say(const QString& message)
{
    std::fputs(qPrintable(u"quor-menubar-helper: "_s + message + u'\n'), stderr);
}

} // namespace

int main(int argc, char** argv)
{
    if (const auto reason = platform::chooseDesktopPlatform(argc, argv)) {
        say(*reason);
        return EXIT_FAILURE;
    }
    if (platform::SessionBus::sessionAddress().isEmpty()) {
        say(u"there is no session bus"_s);
        return EXIT_FAILURE;
    }
    QApplication application(argc, argv);
    const QString bundleIdentifier = u"com.quor-app.Quor3-MenubarHelper"_s;
    QApplication::setApplicationName(bundleIdentifier);
    QApplication::setApplicationDisplayName(u"Quor"_s);
    QApplication::setDesktopFileName(bundleIdentifier);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setCursorFlashTime(0); // a blinking caret would wake the process while the menu is open
    platform::LinuxServices desktop;
    switch (desktop.sessionBus().claim(bundleIdentifier)) {
    case platform::SessionBus::Claim::claimed:
        break;
    case platform::SessionBus::Claim::taken:
        say(u"the helper is running already"_s);
        return EXIT_SUCCESS;
    case platform::SessionBus::Claim::failed:
        say(u"the session bus does not answer"_s);
        return EXIT_FAILURE;
    }
    QObject::connect(&desktop.sessionBus(), &platform::SessionBus::disconnected, &application, [] {
        say(u"the connection to the session bus is lost"_s);
        QApplication::exit(EXIT_FAILURE);
    });

    quor::helper::AppDelegate delegate(desktop.services());
    delegate.applicationDidFinishLaunching();
    return QApplication::exec();
}
