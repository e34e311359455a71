// SPDX-License-Identifier: MIT
// Shows what forms of the kit look like:
//     quor-form-gallery --page navigation
//     quor-form-gallery --pictures /tmp/pictures
#include "FormGallery/CommandLine.h"
#include "FormGallery/Pictures.h"
#include "FormGallery/Window/GalleryWindow.h"

#include <Platform/Linux/DesktopPlatform.h>
#include <Platform/Linux/LinuxServices.h>

#include <QApplication>

using namespace quor;
using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    if (const auto end = gallery::checkScale())
        return *end;
    const auto noDisplay = platform::chooseDesktopPlatform(argc, argv);
    if (noDisplay)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The gallery does without a bus, but Qt would start one.
    if (platform::SessionBus::sessionAddress().isEmpty())
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(u"quor-form-gallery"_s);

    const auto [options, end] = gallery::parseCommandLine(QApplication::arguments());
    if (end)
        return *end;
    platform::LinuxServices desktop;
    if (options.pictures) {
        const auto problem = gallery::writePictures(*options.pictures, options.page, desktop.services());
        return problem ? gallery::complain(gallery::failed, *problem) : gallery::succeeded;
    }
    if (noDisplay)
        return gallery::complain(gallery::failed, *noDisplay + u"; --pictures works without one"_s);

    gallery::GalleryWindow window(desktop.services());
    if (options.page)
        window.setPage(*options.page);
    window.show();
    return QApplication::exec();
}
