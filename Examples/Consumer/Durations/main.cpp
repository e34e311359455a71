// SPDX-License-Identifier: MIT
// Prints the durations given as seconds, the way the status item shows them:
//     durations 5400 -90
#include <ToolKit/Formatting/DurationFormatter.h>

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const quor::toolkit::DurationFormatter formatter;
    QStringList seconds = QCoreApplication::arguments().mid(1);
    if (seconds.isEmpty())
        seconds = {QStringLiteral("5400"), QStringLiteral("-90")};
    for (const QString& text : seconds) {
        bool isNumber = false;
        const double duration = text.toDouble(&isNumber);
        if (!isNumber) {
            QTextStream(stderr) << "not a number of seconds: " << text << '\n';
            return 1;
        }
        out << text << " s = " << formatter.string(duration, true) << '\n';
    }
    return 0;
}
