// SPDX-License-Identifier: MIT
// Prints which program runs on which system and device, as for an "About" box or an error report:
//     example-identity
#include <ToolKit/Identity/ApplicationVersion.h>
#include <ToolKit/Identity/DeviceIdentifier.h>
#include <ToolKit/Identity/OSVersion.h>
#include <ToolKit/Text/StringHelpers.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

using namespace quor::toolkit;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    // EXAMPLE_VERSION is defined in CMakeLists.txt.
    QCoreApplication::setApplicationVersion(QStringLiteral(EXAMPLE_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints which program runs on which system and device."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);

    QTextStream out(stdout);
    out << "version:    " << versionDescription() << '\n';
    if (numericVersion(shortVersion()) < numericVersion(u"1.0"))
        out << "            (not yet a first release)\n";
    out << "system:     " << OSVersion::productVersion() << '\n';

    // Each call reads the network's state, so keep the result. Groups make it easier to read out.
    const QString identifier = DeviceIdentifier::identifier();
    out << "device:     " << DeviceIdentifier::deviceName() << '\n';
    out << "identifier: " << inserting(identifier.first(16), QStringLiteral("-"), 4) << "…\n";

    // Texts are changed by whole characters as a user perceives them.
    const QString title = QStringLiteral("größe & gewicht 👨‍👩‍👧 3/4");
    out << "title:      " << truncated(capitalizedFirstLetter(title), 18, QStringLiteral("…")) << '\n';
    out << "file name:  " << withoutFileNameCharacters(withoutEmoji(title)) << '\n';
    out << "key:        " << asciiAlphanumerics(title) << '\n';
    return 0;
}
