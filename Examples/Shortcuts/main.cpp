// SPDX-License-Identifier: MIT
// Lists and runs the user's shortcuts:
//     quor-shortcuts list
//     quor-shortcuts run Notes/log "Called Ada"
#include <Platform/Linux/Applications/DesktopShortcutsService.h>
#include <ToolKit_macOS/Shortcuts/ShortcutRunner.h>

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

using namespace quor;

namespace {

constexpr int failed = 1;
constexpr int misused = 2;

void print(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout);
}

int list()
{
    toolkit::ShortcutRunner runner(std::make_shared<platform::DesktopShortcutsService>());
    runner.loadShortcuts([](const std::vector<toolkit::Shortcut>& shortcuts) {
        for (const auto& shortcut : shortcuts)
            print(QStringList{shortcut.id, shortcut.name, shortcut.subtitle}.join(u'\t') + u'\n');
        QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}

int run(const QString& id, const std::optional<QString>& input)
{
    platform::DesktopShortcutsService service;
    if (!service.shortcutWithId(id)) {
        std::fprintf(stderr, "quor-shortcuts: there is no shortcut \"%s\"\n", qPrintable(id));
        return failed;
    }
    const auto result = service.run(id, input);
    if (!result) {
        std::fprintf(stderr, "quor-shortcuts: \"%s\" cannot be started\n", qPrintable(id));
        return failed;
    }
    print(*result);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments == QStringList{QStringLiteral("list")})
        return list();
    if (arguments.value(0) == QLatin1String("run") && (arguments.size() == 2 || arguments.size() == 3))
        return run(arguments[1], arguments.size() == 3 ? std::optional(arguments[2]) : std::nullopt);
    std::fputs("usage: quor-shortcuts list\n       quor-shortcuts run ID [INPUT]\n", stderr);
    return misused;
}
