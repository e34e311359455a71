// SPDX-License-Identifier: MIT
#include "Platform/Linux/HotKeys/PortalHotKeys.h"

#include "Platform/Linux/HotKeys/DesktopHotKeys.h"
#include "ShortcutsPortal.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/GlobalHotKeyManager.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::ShortcutsPortal;
using quor::test::waitFor;
using quor::toolkit::GlobalHotKeyManager;
using testing::ElementsAre;

namespace {

namespace Modifier = HotKeyModifier;

constexpr std::uint32_t keyA = 0x00, keyB = 0x0B;

class PortalHotKeysTest : public testing::Test {
protected:
    PortalHotKeysTest()
    {
        // The layout in the environment names the keys, as there is no X server.
        qunsetenv("DISPLAY");
        qputenv("XKB_DEFAULT_LAYOUT", "us");
        hotKeys = std::make_unique<PortalHotKeys>(bus);
        manager = std::make_unique<GlobalHotKeyManager>(*hotKeys);
        manager->hotkeyPressedHandler = [this](std::uint32_t id) { fired.push_back(id); };
        manager->hotkeysChangedHandler = [this] { ++changes; };
    }
    ~PortalHotKeysTest() override { qputenv("DISPLAY", display_); }

    bool binds(std::uint32_t id, const QString& trigger)
    {
        return waitFor([&] { return manager->triggerText(id) == trigger; });
    }
    bool refusesAll(HotKeyRefusal reason)
    {
        return waitFor([&] {
            const auto refused = manager->refusedHotkeys();
            return !refused.empty()
                && std::ranges::all_of(refused, [&](const auto& each) { return each.reason == reason; });
        });
    }
    bool works()
    {
        return waitFor([&] { return manager->refusedHotkeys().empty(); });
    }

    QByteArray display_ = qgetenv("DISPLAY");
    SessionBus bus;
    std::unique_ptr<PortalHotKeys> hotKeys;
    std::unique_ptr<GlobalHotKeyManager> manager;
    std::vector<std::uint32_t> fired;
    int changes = 0;
};

} // namespace

TEST_F(PortalHotKeysTest, BindsAllAtOnceAndFiresAtTheDeactivation)
{
    ShortcutsPortal portal;
    ASSERT_TRUE(portal.isServing);
    portal.left = u"hotkey-2"_s;
    manager->registerHotkey(keyA, Modifier::command | Modifier::control | Modifier::option, 1, u"Start"_s);
    manager->registerHotkey(0x31, Modifier::shift, 2);
    manager->registerHotkey(keyB, Modifier::command, 1);
    manager->registerHotkey(0x34, 0, 9);
    EXPECT_EQ(manager->registeredHotkeys().size(), 3U);
    EXPECT_TRUE(binds(1, u"Press CTRL+ALT+LOGO+a"_s));
    EXPECT_EQ(portal.sessionsMade, 1);
    QStringList asked;
    for (const auto& [id, properties] : portal.asked)
        asked += id + u' ' + properties[u"description"_s].toString() + u' '
            + properties[u"preferred_trigger"_s].toString();
    EXPECT_THAT(asked,
        ElementsAre(u"hotkey-1 Start CTRL+ALT+LOGO+a"_s, u"hotkey-2 SHIFT+space SHIFT+space"_s,
            u"hotkey-1-2 LOGO+b LOGO+b"_s));
    const auto refused = manager->refusedHotkeys();
    ASSERT_EQ(refused.size(), 2U);
    EXPECT_EQ(std::pair(refused[0].id, refused[0].reason), std::pair(2U, HotKeyRefusal::declined));
    EXPECT_EQ(std::pair(refused[1].id, refused[1].reason), std::pair(9U, HotKeyRefusal::noSuchKey));

    portal.press(u"hotkey-1"_s);
    portal.release(u"hotkey-1-2"_s);
    portal.release(u"hotkey-7"_s);
    portal.release(u"hotkey-1"_s);
    EXPECT_TRUE(waitFor([&] { return fired.size() == 2; }));
    EXPECT_THAT(fired, ElementsAre(1, 1));
    changes = 0;
    portal.left.clear();
    portal.changeTriggers(u"Hold "_s);
    EXPECT_TRUE(binds(2, u"Hold SHIFT+space"_s));
    EXPECT_GT(changes, 0);
    EXPECT_EQ(manager->refusedHotkeys().size(), 1U);

    manager->unregisterAllHotkeys();
    EXPECT_TRUE(waitFor([&] { return portal.session.isEmpty(); })) << "the session stays open";
}

TEST_F(PortalHotKeysTest, SaysWhyItDoesNotWork)
{
    manager->registerHotkey(keyA, Modifier::command, 1);
    EXPECT_TRUE(refusesAll(HotKeyRefusal::noService)) << "there is no portal";
    ShortcutsPortal portal;
    EXPECT_TRUE(works()) << "a portal that comes later is used";
    EXPECT_TRUE(binds(1, u"Press LOGO+a"_s));
    portal.endSession();
    EXPECT_TRUE(refusesAll(HotKeyRefusal::noService));
    EXPECT_EQ(manager->triggerText(1), QString());
    for (const uint code : {1, 2}) {
        portal.code = code;
        manager->registerHotkey(keyB, Modifier::command, 2);
        EXPECT_TRUE(refusesAll(HotKeyRefusal::declined));
    }
    SessionBus none{QString()};
    PortalHotKeys without(none);
    EXPECT_FALSE(without.isAvailable());
    EXPECT_EQ(std::get<HotKeyRefusal>(without.registerHotKey({}, {})), HotKeyRefusal::noService);
}

TEST_F(PortalHotKeysTest, WaitsForLateAnswersAndDropsThoseThatAreNotNeededAnyMore)
{
    ShortcutsPortal portal;
    portal.isPrompt = false;
    manager->registerHotkey(keyA, Modifier::command, 1);
    EXPECT_TRUE(waitFor([&] { return portal.answers.size() == 1; }));
    const auto former = portal.session;
    manager->unregisterAllHotkeys();
    manager->registerHotkey(keyB, Modifier::command, 2);
    EXPECT_TRUE(waitFor([&] { return portal.answers.size() == 2; }));
    EXPECT_FALSE(portal.closedRequest.isEmpty()) << "the portal still asks the user";
    EXPECT_NE(portal.session, former);
    portal.answer(); // the first one is late
    EXPECT_TRUE(waitFor([&] { return portal.answers.size() == 1; }));
    EXPECT_EQ(portal.asked.size(), 1);
    EXPECT_TRUE(manager->refusedHotkeys().empty());
    portal.answer();
    EXPECT_TRUE(binds(2, u"Press LOGO+b"_s));
    EXPECT_EQ(portal.asked[0].id, u"hotkey-2"_s);
    portal.release(u"hotkey-2"_s);
    EXPECT_TRUE(waitFor([&] { return fired.size() == 1; }));
}

TEST_F(PortalHotKeysTest, BindsAgainWhenThePortalComesBack)
{
    manager->registerHotkey(keyA, Modifier::command, 1);
    for (const bool isPrompt : {true, false, true}) {
        auto portal = std::make_unique<ShortcutsPortal>();
        portal->isPrompt = isPrompt;
        EXPECT_TRUE(
            isPrompt ? binds(1, u"Press LOGO+a"_s) : waitFor([&] { return !portal->answers.empty(); }));
        EXPECT_TRUE(works());
        const auto before = changes;
        portal.reset();
        EXPECT_TRUE(refusesAll(HotKeyRefusal::noService)) << "it vanished, perhaps before its answer";
        EXPECT_GT(changes, before);
        EXPECT_EQ(manager->triggerText(1), QString());
    }
}

TEST_F(PortalHotKeysTest, IsChosenInAWaylandSession)
{
    const auto sessionType = qgetenv("XDG_SESSION_TYPE");
    for (const bool isWayland : {true, false}) {
        qputenv("XDG_SESSION_TYPE", isWayland ? "wayland" : "x11");
        EXPECT_EQ(dynamic_cast<PortalHotKeys*>(makeDesktopHotKeys(bus).get()) != nullptr, isWayland);
    }
    qputenv("XDG_SESSION_TYPE", sessionType);
}
