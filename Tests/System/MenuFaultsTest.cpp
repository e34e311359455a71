// SPDX-License-Identifier: MIT
// How the menu copes with faulty main applications and with events from outside.
#include "Platform/Lifetime/Subscription.h"
#include "System/MenuFixture.h"

#include <csignal>

#include <sys/types.h>

using namespace quor;
using namespace quor::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

using MenuFaults = MenuFixture;

TEST_F(MenuFaults, RowsThatNeverCome)
{
    startHelper();
    const QImage plain = shownItem();
    clickItem();
    ASSERT_TRUE(isAsked());
    clickItem();
    ASSERT_TRUE(isAsked()) << "again";
    EXPECT_TRUE(menu->frame().isNull());
    xdotool(u"key Escape"_s);
    EXPECT_TRUE(shows(plain));
    EXPECT_TRUE(typing.takes(u"x"_s)) << "nobody's keys are kept";
    // A late answer still opens the menu.
    answer(someRows());
    ASSERT_TRUE(menu->opens());
    EXPECT_TRUE(menu->hover(u"Review"_s));
}

TEST_F(MenuFaults, ABusThatIsSilentForSomeSeconds)
{
    const auto reply = publisher.bus.connection().call(platform::SessionBus::callOfBus(
        u"GetConnectionUnixProcessID"_s, {platform::SessionBus::callOfBus({}).service()}));
    ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    startHelper();
    const auto bus = pid_t(reply.arguments().value(0).toUInt());
    {
        kill(bus, SIGSTOP);
        const platform::Subscription goesOn([bus] { kill(bus, SIGCONT); });
        for (int click = 0; click < 3; ++click) { // each is handled only after the bus was waited for
            clickItem();
            ASSERT_TRUE(isAsked()) << qPrintable(helper->errors());
        }
    }
    answer(someRows());
    ASSERT_TRUE(menu->opens());
    EXPECT_TRUE(menu->hover(u"Review"_s));
}

TEST_F(MenuFaults, RowsThatComeTwiceOrCannotBeReadOrAreNone)
{
    startHelper();
    open();
    answer(someRows());
    ASSERT_TRUE(menu->hover(u"Review"_s));
    answer({});
    EXPECT_TRUE(waitFor([this] { return menu->frame().height() < 60; }, 15s));
    answer(someRows());
    EXPECT_TRUE(menu->shows(u"Quit"_s));
    storage().setMenuEntryData({});
    platform::UserDefaults::suiteOrStandard(storage().groupID)
        .setObject(QByteArray(R"([{"entry":{"_0":{"label":)"), u"menuEntryData"_s);
    publisher.request({Action::RequestMenuEntries{}});
    EXPECT_TRUE(waitFor([this] { return !menu->find(u"Quit"_s); }, 15s));
    answer(someRows());
    ASSERT_TRUE(menu->click(u"Review"_s));
    EXPECT_TRUE(holds({Action::StartTimer{u"T2"_s}})) << "as good as before";
}

TEST_F(MenuFaults, TheHelperEndsWithTheMenuOpenAndAtAClickOnceTheMainApplicationHasGone)
{
    startHelper();
    clickItem();
    ASSERT_TRUE(isAsked());
    publisher.bus.connection().unregisterService(publisher.bridge.mainAppBundleID);
    clickItem();
    ASSERT_TRUE(helper->ends());
    EXPECT_EQ(helper->exitCode(), 0) << qPrintable(helper->errors());
    EXPECT_TRUE(typing.takes(u"x"_s));

    ASSERT_EQ(publisher.bus.claim(publisher.bridge.mainAppBundleID), platform::SessionBus::Claim::claimed);
    startHelper();
    open();
    publisher.bridge.postNotification(InterAppNotification::helperKill);
    ASSERT_TRUE(helper->ends());
    EXPECT_EQ(helper->exitCode(), 0) << qPrintable(helper->errors());
}

TEST_F(MenuFaults, AScreenThatChangesTakesItAlong)
{
    const auto xrandr
        = [](const QString& arguments) { return QProcess::execute(u"xrandr"_s, arguments.split(u' ')) == 0; };
    const auto endsAt
        = [this](int right) { return waitFor([&] { return menu->frame().right() == right; }, 15s); };
    startHelper();
    open();
    EXPECT_TRUE(endsAt(1279));
    ASSERT_TRUE(xrandr(u"--newmode small 64 1024 1072 1176 1328 768 771 775 798"_s)
        && xrandr(u"--addmode screen small"_s) && xrandr(u"--output screen --mode small"_s));
    EXPECT_TRUE(endsAt(1023));
    EXPECT_TRUE(xrandr(u"--output screen --mode 1280x800"_s));
    EXPECT_TRUE(endsAt(1279));
    EXPECT_TRUE(menu->hover(u"Review"_s));
}

TEST_F(MenuFaults, OneHundredThousandRowsAreWalkedToTheirEnd)
{
    startHelper();
    for (const int count : {10'000, 100'000}) {
        open(manyRows(count));
        ASSERT_TRUE(menu->shows(u"Task 1"_s));
        EXPECT_LE(menu->frame().bottom(), 800 * 0.9 + 22);
        xdotool(u"key Down"_s);
        ASSERT_TRUE(menu->selects(u"Task 1"_s));
        answer(manyRows(count)); // which leaves the keys to the rows
        EXPECT_TRUE(holds({}));
        xdotool(u"key End Return"_s);
        EXPECT_TRUE(holds({Action::StartTimer{QString::number(count - 1)}}));
        ASSERT_TRUE(menu->closes());
    }
}

TEST_F(MenuFaults, AHundredOpeningsLeaveMemoryFlat)
{
    startHelper({{u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, {}}});
    const auto openAndClose = [this](int times) {
        for (int i = 0; i < times; ++i) {
            publisher.request({Action::OpenMenu{}});
            if (!isAsked())
                return false;
            answer(i % 10 ? someRows() : manyRows(1000));
            if (!menu->opens())
                return false;
            publisher.request({Action::OpenMenu{}});
            if (!menu->closes())
                return false;
        }
        return true;
    };
#ifdef __SANITIZE_ADDRESS__ // which keeps aside what was freed
    EXPECT_TRUE(openAndClose(20));
#else
    ASSERT_TRUE(openAndClose(100)); // creates fonts and icons, which stay
    const long before = helper->privateMemory();
    ASSERT_TRUE(openAndClose(100));
    EXPECT_LT(helper->privateMemory() - before, 1024) << "kilobytes";
#endif
}

} // namespace
