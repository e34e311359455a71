// SPDX-License-Identifier: MIT
// Switches the desktop between light and dark: reads lines of "light" or "dark" until its input ends.
#include "Support/SettingsPortal.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

#include <array>
#include <cstdio>

using quor::test::SettingsPortal;

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    SettingsPortal portal(SettingsPortal::preferLight);
    if (!portal.isServing()) {
        std::fputs("settings-portal: the session has a portal already, or no bus\n", stderr);
        return EXIT_FAILURE;
    }
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        std::array<char, 64> bytes;
        const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0)
            return QCoreApplication::quit();
        // Of several lines that arrive together, only the last one is used.
        const auto lines = QByteArray(bytes.data(), count).trimmed().split('\n');
        const bool dark = lines.back() == "dark";
        portal.change(QStringLiteral("color-scheme"),
            QVariant::fromValue<uint>(dark ? SettingsPortal::preferDark : SettingsPortal::preferLight));
    });
    return QCoreApplication::exec();
}
