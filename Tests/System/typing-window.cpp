// SPDX-License-Identifier: MIT
// A program with a line edit, which the user works with while the menu opens and closes. Prints "active" and
// "inactive" when it gets and loses the focus, and "text ..." when the typed text changes.
//     typing-window [X Y]
#include <QApplication>
#include <QLineEdit>
#include <QWindow>

#include <cstdio>

namespace {

void print(const QString& line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QLineEdit line;
    const auto place = QApplication::arguments().mid(1);
    line.setGeometry(place.value(0).toInt(), place.value(1).toInt(), 300, 40);
    line.setWindowTitle(QStringLiteral("typing-window"));
    QObject::connect(
        &line, &QLineEdit::textChanged, [](const QString& text) { print(QStringLiteral("text ") + text); });
    QObject::connect(&application, &QGuiApplication::focusWindowChanged,
        [](const QWindow* window) { print(window ? QStringLiteral("active") : QStringLiteral("inactive")); });
    line.show();
    line.activateWindow();
    return QApplication::exec();
}
