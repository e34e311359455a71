// SPDX-License-Identifier: MIT
// Reads distances as a user types them, and writes them as an application shows them:
//     example-distances "12" "3.5 miles" "1.500 m"
#include <ToolKit/Formatting/DistanceFormatter.h>
#include <ToolKit/Formatting/LocaleFacts.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

using namespace quor::toolkit;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Reads distances as a user types them, and writes them as an application shows them."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("distance"), QStringLiteral("A text that a user typed."),
        QStringLiteral("[distance...]"));
    parser.process(application);
    QStringList typed = parser.positionalArguments();
    if (typed.isEmpty())
        typed = {QStringLiteral("12"), QStringLiteral("3.5 miles"), QStringLiteral("1.500 m"),
            QStringLiteral("far")};
    QTextStream out(stdout);

    // A formatter uses the user's locale, unless another is named.
    for (const QString& locale :
        {localeIdentifier(), QStringLiteral("en_US"), QStringLiteral("de_DE"), QStringLiteral("ar_EG")}) {
        const DistanceFormatter formatter(locale);
        out << locale << (usesMetricSystem(locale) ? " counts in kilometres\n" : " counts in miles\n");
        for (const QString& text : typed) {
            // Distances are in metres. A number without a unit is in the user's unit.
            const double meters = formatter.distance(text);
            if (meters < 0)
                out << "    " << text << " is not a distance\n";
            else
                out << "    " << text << " = " << meters << " m, shown as " << formatter.string(meters)
                    << '\n';
        }
    }
    return 0;
}
