// SPDX-License-Identifier: MIT
// Registers hot keys and prints those that the user lets go, whatever program is in front:
//     quor-hotkeys ctrl+super+space alt+f5
// Exits with 1 if no combination works, with 2 if the arguments are wrong.
#include "Combination.h"

#include <Platform/Linux/Bus/SessionBus.h>
#include <Platform/Linux/HotKeys/DesktopHotKeys.h>
#include <Platform/Linux/Keyboard/XkbKeyboardLayout.h>
#include <ToolKit_macOS/GlobalHotKeyManager.h>
#include <ToolKit_macOS/HotkeyFormatter.h>

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using namespace quor;
using namespace Qt::StringLiterals;

namespace {

constexpr int failed = 1;
constexpr int misused = 2;

void print(std::FILE* file, const QString& line)
{
    std::fprintf(file, "%s\n", line.toLocal8Bit().constData());
    std::fflush(file);
}

int complain(int code, const QString& text)
{
    print(stderr, u"quor-hotkeys: "_s + text);
    return code;
}

QString reasonText(platform::HotKeyRefusal reason)
{
    switch (reason) {
    case platform::HotKeyRefusal::taken:
        return u"taken by another program"_s;
    case platform::HotKeyRefusal::noSuchKey:
        return u"the keyboard has no such key"_s;
    case platform::HotKeyRefusal::noService:
        return u"the desktop offers no hot keys"_s;
    case platform::HotKeyRefusal::declined:
        return u"the desktop declined"_s;
    }
    return {};
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Registers hot keys, and prints the number and the keys of each one that is pressed and let go, "
        "whatever program is in front. Prints those that do not work on standard error. Runs until it is "
        "interrupted. Exits with 1 if no combination works, with 2 if the arguments are wrong."_s);
    const QCommandLineOption count(
        u"count"_s, u"Exits with 0 after this many hot keys were let go."_s, u"number"_s);
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Shows this help."_s);
    parser.addOptions({count, help});
    parser.addPositionalArgument(u"combination"_s,
        u"Keys, like ctrl+super+space, alt+f5 or shift+super+a. Modifiers are ctrl, alt, shift and super. A "
        "key can be given by its virtual key code, as in ctrl+0x31."_s,
        u"combination..."_s);
    if (!parser.parse(QCoreApplication::arguments()))
        return complain(misused, parser.errorText());
    if (parser.isSet(help))
        parser.showHelp();
    bool isCount = true;
    auto left = parser.isSet(count) ? parser.value(count).toUInt(&isCount) : 0;
    const QStringList texts = parser.positionalArguments();
    if (!isCount || texts.isEmpty())
        return complain(misused, u"no combination given, or a count that is no number; see --help"_s);

    const platform::XkbKeyboardLayout layout;
    platform::SessionBus bus;
    const auto hotKeys = platform::makeDesktopHotKeys(bus);
    toolkit::GlobalHotKeyManager manager(*hotKeys);
    const toolkit::HotkeyFormatter formatter(layout);
    const auto wording = [&](std::uint32_t keyCode, std::uint32_t modifiers) {
        return formatter.displayString(int(keyCode), int(modifiers));
    };

    QStringList names;
    for (const QString& text : texts) {
        const auto keys = combination(text, layout);
        if (!keys)
            return complain(misused, u"not a combination of keys: "_s + text);
        names += wording(keys->keyCode, keys->modifiers);
        manager.registerHotkey(keys->keyCode, keys->modifiers, std::uint32_t(names.size()));
    }
    const auto explain = [&] {
        const auto refused = manager.refusedHotkeys();
        for (const auto& [keyCode, modifiers, id, reason] : refused)
            complain(failed, wording(keyCode, modifiers) + u": "_s + reasonText(reason));
        for (std::uint32_t id = 1; id <= std::uint32_t(names.size()); ++id) {
            if (const auto trigger = manager.triggerText(id); !trigger.isEmpty())
                print(stderr, QString::number(id) + u": "_s + trigger);
        }
        if (refused.size() == std::size_t(names.size()))
            QCoreApplication::exit(failed);
        return refused.size() < std::size_t(names.size());
    };
    manager.hotkeysChangedHandler = explain;
    manager.hotkeyPressedHandler = [&](std::uint32_t id) {
        print(stdout, QString::number(id) + u' ' + names.value(int(id) - 1));
        if (left > 0 && --left == 0)
            QCoreApplication::quit();
    };
    return explain() ? QCoreApplication::exec() : failed;
}
