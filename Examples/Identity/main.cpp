// SPDX-License-Identifier: MIT
// Tells what runs where, as a program would in its "About" box or in a report of an error:
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
    // The build tells the version: see CMakeLists.txt.
    QCoreApplication::setApplicationVersion(QStringLiteral(EXAMPLE_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Tells what runs where."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);

    QTextStream out(stdout);
    out << "version:    " << versionDescription() << '\n';
    if (numericVersion(shortVersion()) < numericVersion(u"1.0"))
        out << "            (not yet a first release)\n";
    out << "system:     " << OSVersion::productVersion() << '\n';

    // It looks at the network each time, so keep it. In groups it is easier to read out.
    const QString identifier = DeviceIdentifier::identifier();
    out << "device:     " << DeviceIdentifier::deviceName() << '\n';
    out << "identifier: " << inserting(identifier.first(16), QStringLiteral("-"), 4) << "…\n";

    // Texts are changed by characters, as their reader sees them.
    const QString title = QStringLiteral("größe & gewicht 👨‍👩‍👧 3/4");
    out << "title:      " << truncated(capitalizedFirstLetter(title), 18, QStringLiteral("…")) << '\n';
    out << "file name:  " << withoutFileNameCharacters(withoutEmoji(title)) << '\n';
    out << "key:        " << asciiAlphanumerics(title) << '\n';
    return 0;
}
