// SPDX-License-Identifier: MIT
#include "OtherWindow.h"
#include "Platform/Linux/HotKeys/X11HotKeys.h"
#include "Platform/Linux/Keyboard/XkbKeyboardLayout.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/GlobalHotKeyManager.h"
#include "Xdotool.h"

#include <gmock/gmock.h>

#include <memory>

// The header uses a keyword of C++ as a name.
#define explicit explicit_ // NOLINT(clang-diagnostic-keyword-macro)
#include <xcb/xkb.h>
#undef explicit

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::OtherWindow;
using quor::test::waitFor;
using quor::test::xdotool;
using quor::toolkit::GlobalHotKeyManager;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

namespace Modifier = HotKeyModifier;

// Virtual key codes, and the server's key codes of the same positions on an American keyboard.
constexpr std::uint32_t keyA = 0x00, keyB = 0x0B, keyZ = 0x06, space = 0x31;
constexpr xcb_keycode_t x11KeyB = 56;

bool run(const QString& command)
{
    auto arguments = QProcess::splitCommand(command);
    QProcess process;
    process.start(arguments.takeFirst(), arguments);
    return waitFor([&] { return process.state() == QProcess::NotRunning; }) && process.exitCode() == 0;
}

class HotKeysX11Test : public testing::Test {
protected:
    HotKeysX11Test()
    {
        manager->hotkeyPressedHandler = [this](std::uint32_t id) { fired.push_back(id); };
        manager->hotkeysChangedHandler = [this] { ++changes; };
    }
    ~HotKeysX11Test() override { run(u"setxkbmap -layout us -option \"\""_s); }

    /// Whether the other client gets the grab of B with these modifiers.
    [[nodiscard]] bool otherGrabsB(std::uint16_t modifiers) const
    {
        const auto cookie = xcb_grab_key_checked(
            other.x, 0, other.root, modifiers, x11KeyB, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return !x11Reply(xcb_request_check(other.x, cookie));
    }
    /// Switches to the first or second of two layouts.
    void useLayout(std::uint8_t index)
    {
        xcb_xkb_use_extension(other.x, 1, 0);
        xcb_xkb_latch_lock_state(other.x, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, index, 0, 0, 0);
        other.sync();
    }
    bool fires(std::size_t count)
    {
        return waitFor([&] { return fired.size() >= count; });
    }

    OtherWindow other{{700, 500}};
    std::unique_ptr<X11HotKeys> hotKeys = std::make_unique<X11HotKeys>();
    std::unique_ptr<GlobalHotKeyManager> manager = std::make_unique<GlobalHotKeyManager>(*hotKeys);
    std::vector<std::uint32_t> fired;
    int changes = 0;
};

} // namespace

TEST_F(HotKeysX11Test, FiresOnceAtTheReleaseWhateverIsLockedAndHeldOrReleasedFirst)
{
    manager->registerHotkey(space, Modifier::control | Modifier::command, 1);
    manager->registerHotkey(keyB, Modifier::command, 2);
    manager->registerHotkey(keyA, Modifier::command | Modifier::shift | Modifier::option, 3);
    ASSERT_THAT(manager->refusedHotkeys(), IsEmpty());
    run(u"xset r rate 20 200"_s);
    for (const QString& locks : {u""_s, u"key Caps_Lock "_s, u"key Num_Lock "_s, u"key Caps_Lock "_s}) {
        // The first key is held until it repeats, and goes up after its modifiers. The second one shows that
        // nothing fires before.
        xdotool(locks
            + u"keydown ctrl keydown super keydown space sleep 0.2 keyup ctrl key super+b keyup space "
              "key super+alt+shift+a key super+space key b"_s);
        EXPECT_TRUE(fires(3));
        EXPECT_THAT(fired, ElementsAre(2, 1, 3)) << qPrintable(locks);
        fired.clear();
    }
    xdotool(u"key Num_Lock"_s);
}

TEST_F(HotKeysX11Test, KeepsKeysOfOtherClientsAndLeavesThemWhatItDoesNotGet)
{
    ASSERT_TRUE(otherGrabsB(XCB_MOD_MASK_4 | XCB_MOD_MASK_2)); // one variant is enough
    manager->registerHotkey(keyB, Modifier::command, 1);
    manager->registerHotkey(0x34, Modifier::command, 2);
    manager->registerHotkey(0x3F, 0, 3); // the Function key, which the server does not know
    manager->registerHotkey(keyA, Modifier::command, 4);
    EXPECT_EQ(manager->registeredHotkeys().size(), 1U);
    std::vector<std::pair<std::uint32_t, HotKeyRefusal>> refused;
    for (const auto& hotkey : manager->refusedHotkeys())
        refused.emplace_back(hotkey.id, hotkey.reason);
    EXPECT_THAT(refused,
        ElementsAre(std::pair(1U, HotKeyRefusal::taken), std::pair(2U, HotKeyRefusal::noSuchKey),
            std::pair(3U, HotKeyRefusal::noSuchKey)));
    EXPECT_TRUE(otherGrabsB(XCB_MOD_MASK_4)) << "a refused combination stays grabbed in part";

    xcb_ungrab_key(other.x, XCB_GRAB_ANY, other.root, XCB_MOD_MASK_ANY);
    other.sync();
    manager->unregisterAllHotkeys();
    manager->registerHotkey(keyB, Modifier::command, 5);
    manager->registerHotkey(keyB, Modifier::command, 6);
    EXPECT_FALSE(otherGrabsB(XCB_MOD_MASK_4));
    xdotool(u"key super+b"_s);
    EXPECT_TRUE(fires(2));
    EXPECT_THAT(fired, ElementsAre(5, 6));
    manager->unregisterAllHotkeys();
    (void)hotKeys->registerHotKey(
        {space, Modifier::command, {}, {}}, {}); // returns after the server's answer
    EXPECT_TRUE(otherGrabsB(XCB_MOD_MASK_4));
}

TEST_F(HotKeysX11Test, FollowsTheLayoutAndTheModifiersOfTheKeyboard)
{
    manager->registerHotkey(keyZ, Modifier::command, 1);
    // Keys are positions: what a German keyboard calls Y. Another group must not matter either.
    ASSERT_TRUE(run(u"setxkbmap -layout de"_s));
    xdotool(u"key super+y"_s);
    EXPECT_TRUE(fires(1));
    ASSERT_TRUE(run(u"setxkbmap -layout us,de"_s));
    useLayout(1);
    xdotool(u"keydown super key 52 keyup super"_s);
    EXPECT_TRUE(fires(2));
    useLayout(0);

    const auto reason = [&] {
        const auto refused = manager->refusedHotkeys();
        return refused.empty() ? std::nullopt : std::optional(refused.front().reason);
    };
    const auto modify = [](const QString& expressions) { return run(u"xmodmap "_s + expressions); };
    ASSERT_TRUE(modify(u"-e \"clear mod4\""_s));
    EXPECT_TRUE(waitFor([&] { return reason() == HotKeyRefusal::noSuchKey; }));
    EXPECT_EQ(changes, 1);
    ASSERT_TRUE(modify(u"-e \"clear mod3\" -e \"add mod3 = Super_L\""_s));
    EXPECT_TRUE(waitFor([&] { return !reason(); }));
    EXPECT_EQ(changes, 2);
    xdotool(u"keydown super key 52 keyup super"_s);
    EXPECT_TRUE(fires(3));
    EXPECT_THAT(fired, ElementsAre(1, 1, 1));
}

TEST_F(HotKeysX11Test, NamesKeysByTheLayoutInForce)
{
    const XkbKeyboardLayout layout;
    const auto texts = [](const XkbKeyboardLayout& asked) {
        QStringList
            each; // the positions of A, Z, Ü, the accent left of 1, the number pad's 7, Shift, and none
        for (const std::uint32_t keyCode : {0x00, 0x06, 0x21, 0x32, 0x59, 0x38, 0x34})
            each += asked.text(keyCode);
        return each.join(u' ');
    };
    const std::pair<QString, QString> cases[] = {{u"us"_s, u"a z [ ` 7  "_s}, {u"de"_s, u"a y ü ^ 7  "_s},
        {u"fr"_s, u"q w ^ ² 7  "_s}, {u"ru"_s, u"ф я х ё 7  "_s}};
    for (const auto& [name, expected] : cases) {
        ASSERT_TRUE(run(u"setxkbmap -layout "_s + name));
        EXPECT_EQ(texts(layout), expected) << qPrintable(name);
    }
    ASSERT_TRUE(run(u"setxkbmap -layout us,de"_s));
    useLayout(1);
    EXPECT_EQ(layout.text(keyZ), u"y"_s);
    EXPECT_EQ(layout.symbolName(0x21), u"udiaeresis"_s);
    useLayout(0);
    EXPECT_EQ(layout.text(keyZ), u"z"_s);
    qputenv("XKB_DEFAULT_LAYOUT", "fr");
    EXPECT_EQ(texts(XkbKeyboardLayout(":77777")), u"q w ^ ² 7  "_s);
    qunsetenv("XKB_DEFAULT_LAYOUT");
}

TEST_F(HotKeysX11Test, AProgramPrintsThoseThatFire)
{
    ASSERT_TRUE(otherGrabsB(XCB_MOD_MASK_4));
    const auto start = [](QProcess& program, const QStringList& arguments) {
        program.start(QStringLiteral(QUOR_HOTKEYS), arguments);
        return &program;
    };
    const auto ends = [](QProcess& program) {
        return waitFor([&] { return program.state() == QProcess::NotRunning; }) ? program.exitCode() : -1;
    };
    QProcess program;
    start(program, {u"--count"_s, u"2"_s, u"super+b"_s, u"Ctrl+Super+Space"_s, u"alt+shift+0x24"_s});
    QByteArray errors;
    ASSERT_TRUE(waitFor([&] { return (errors += program.readAllStandardError()).contains('\n'); }));
    EXPECT_EQ(errors, "quor-hotkeys: ⌘b: taken by another program\n");
    xdotool(u"key super+b key alt+shift+Return key ctrl+super+space"_s);
    EXPECT_EQ(ends(program), 0);
    EXPECT_EQ(program.readAllStandardOutput(), "3 ⌥⇧↩\n2 ⌃⌘⎵\n");
    for (const QStringList& arguments :
        {QStringList{}, {u"super+"_s}, {u"hyper+a"_s}, {u"--count"_s, u"x"_s, u"f5"_s}})
        EXPECT_EQ(ends(*start(program, arguments)), 2) << qPrintable(arguments.join(u' '));
    EXPECT_EQ(ends(*start(program, {u"super+b"_s})), 1);
}

TEST_F(HotKeysX11Test, HandlersMayEndRegistrationsAndEverything)
{
    manager->registerHotkey(keyA, Modifier::command, 1);
    manager->registerHotkey(keyB, Modifier::command, 2);
    xdotool(u"keydown super keydown a"_s);
    manager->unregisterAllHotkeys();
    manager->registerHotkey(keyB, Modifier::command, 2);
    xdotool(u"keyup a key b keyup super"_s);
    EXPECT_TRUE(fires(1));
    EXPECT_THAT(fired, ElementsAre(2)) << "what is unregistered while it is held does not fire";

    int calls = 0;
    const auto end = [&](HotKeyIdentifier) {
        ++calls;
        manager.reset();
        hotKeys.reset();
    };
    for (int count = 0; count < 2; ++count)
        (void)hotKeys->registerHotKey({keyA, Modifier::command, {}, {}}, {end, {}});
    xdotool(u"key super+a"_s);
    EXPECT_TRUE(waitFor([&] { return !hotKeys; }));
    EXPECT_EQ(calls, 1);
}

TEST_F(HotKeysX11Test, SaysSoWhenTheServerIsGone)
{
    QProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s});
    QByteArray number;
    ASSERT_TRUE(waitFor(
        [&] { return (number += server.readAllStandardOutput()).endsWith('\n'); }, std::chrono::seconds(30)));
    X11HotKeys theirs(':' + number.trimmed());
    GlobalHotKeyManager remote(theirs);
    const auto countChanges = [&] { ++changes; };
    remote.hotkeysChangedHandler = countChanges;
    remote.registerHotkey(keyA, Modifier::command, 1);
    EXPECT_TRUE(theirs.isAvailable());
    EXPECT_EQ(remote.registeredHotkeys().size(), 1U);
    server.kill();
    server.waitForFinished();
    EXPECT_TRUE(waitFor([&] { return changes == 1; }));
    EXPECT_FALSE(theirs.isAvailable());
    remote.registerHotkey(keyB, Modifier::command, 2);
    const auto refused = remote.refusedHotkeys();
    ASSERT_EQ(refused.size(), 2U);
    EXPECT_EQ(refused[0].reason, HotKeyRefusal::noService);
    EXPECT_EQ(refused[1].reason, HotKeyRefusal::noService);
    remote.unregisterAllHotkeys();
    EXPECT_FALSE(X11HotKeys(":77777").isAvailable());
}
