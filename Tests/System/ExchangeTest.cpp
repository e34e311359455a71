// SPDX-License-Identifier: MIT
// What the helper shows for well-formed and malformed records.
#include "Support/TemporaryDataHome.h"
#include "Support/WaitFor.h"
#include "System/Bar.h"
#include "System/Program.h"
#include "System/Publisher.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace std::chrono_literals;
using namespace quor;
using namespace quor::test;

namespace {

constexpr std::uint64_t blue = 0x4465F9;
const QColor blueOnScreen(0x44, 0x65, 0xF9);

class Exchange : public testing::Test {
protected:
    /// Not called by the fixture, so that a test can prepare what the helper finds.
    void startHelper()
    {
        helper = std::make_unique<Program>(QStringLiteral("quor-menubar-helper"));
        ASSERT_TRUE(waitFor([this] { return publisher.posts > 0; })) << qPrintable(helper->errors());
        bare = nextItem({});
        ASSERT_FALSE(bare.isNull());
    }

    /// Waits until the helper has handled all posts so far: it replaces this request by `none`.
    bool allHandled()
    {
        publisher.request({GroupStorage::Action::RequestMenuEntries{}});
        const GroupStorage::Action none;
        return waitFor([&] { return publisher.bridge.groupStorage.action() == none; }, 30s);
    }

    TemporaryDataHome home;
    Publisher publisher;
    std::unique_ptr<Program> helper;
    QImage bare; ///< The item before anything was published.
};

TEST_F(Exchange, ShowsNothingUntilToldThenWhatIsPublishedLast)
{
    publisher.bridge.groupStorage.setAction({GroupStorage::Action::OpenMenu{}});
    startHelper();
    EXPECT_EQ(publisher.bridge.groupStorage.action(), GroupStorage::Action())
        << "what an earlier run left is dropped";

    publisher.publish(MenubarStatusItemData());
    const QImage clock = nextItem(bare);
    ASSERT_FALSE(clock.isNull());
    EXPECT_EQ(countOf(blueOnScreen, clock), 0);

    publisher.publish(totalOf(3600, blue));
    const QImage dot = nextItem(clock);
    ASSERT_FALSE(dot.isNull());
    EXPECT_GT(dot.width(), clock.width()) << "a text takes more room than the clock face";
    EXPECT_GT(countOf(blueOnScreen, dot), 20) << "the dot keeps its colour";

    publisher.publish(MenubarStatusItemData());
    const QImage clockAgain = nextItem(dot); // its hands may have moved on
    EXPECT_EQ(clockAgain.size(), clock.size());
    EXPECT_EQ(countOf(blueOnScreen, clockAgain), 0) << "nothing of the dot is left behind";
}

TEST_F(Exchange, FollowsTheDisplaySettings)
{
    startHelper();
    publisher.publish(totalOf(37800));
    const QImage clockForm = nextItem(bare);
    publisher.bridge.groupStorage.setShowWorkingDays(true);
    publisher.bridge.groupStorage.setWorkingDayLengthSeconds(28800);
    publisher.bridge.postNotification(InterAppNotification::updatedHelper);
    const QImage withDays = nextItem(clockForm);
    EXPECT_GT(withDays.width(), clockForm.width());
    publisher.bridge.groupStorage.setWorkingDayLengthSeconds(0);
    publisher.bridge.postNotification(InterAppNotification::updatedHelper);
    EXPECT_TRUE(shows(clockForm)) << "a working day without length is no working day";
}

TEST_F(Exchange, RecordsThatCannotBeReadShowTheClockAndTheNextGoodOneShowsAgain)
{
    startHelper();
    publisher.publish(MenubarStatusItemData());
    const QImage clock = nextItem(bare);
    publisher.publish(totalOf(60, blue));
    const QImage good = nextItem(clock);
    const QByteArray deep(1'000'000, '[');
    const std::vector<QByteArray> bad{"", "{", "null", "[]", "\xff\xfe", QByteArray("{\0}", 3),
        R"({"expectedWorkingTime":1})", deep,
        QByteArray(R"({"taskName":")") + QByteArray(64 << 20, 'x') + R"("})"};
    for (const QByteArray& bytes : bad) {
        publisher.publish(bytes);
        EXPECT_EQ(nextItem(good).size(), clock.size()) << bytes.left(40).constData();
        publisher.publish(totalOf(60, blue));
        ASSERT_TRUE(shows(good)) << bytes.left(40).constData();
    }
    EXPECT_TRUE(helper->isRunning());
}

TEST_F(Exchange, AStormEndsWithTheLastStateAndLeavesMemoryFlat)
{
    startHelper();
    publisher.publish(totalOf(60));
    const QImage first = nextItem(bare);
    ASSERT_TRUE(allHandled());
    const auto storm = [&](int posts) {
        for (int i = 0; i < posts; ++i)
            publisher.publish(totalOf(60.0 * (i % 600), i % 2 ? std::optional(blue) : std::nullopt));
        publisher.publish(totalOf(60));
        return allHandled();
    };
    ASSERT_TRUE(storm(10'000)); // memory for waiting posts is allocated now and reused below
    [[maybe_unused]] const long before = helper->privateMemory();
    ASSERT_TRUE(storm(10'000));
#ifndef __SANITIZE_ADDRESS__ // which keeps aside what was freed
    EXPECT_LT(helper->privateMemory() - before, 1024) << "kilobytes";
#endif
    publisher.request({GroupStorage::Action::OpenMenu{}}); // closes the menu that the requests have opened
    EXPECT_TRUE(shows(first));
}

TEST_F(Exchange, AShellScriptCanBeTheMainApplication)
{
    QProcess script;
    script.start(
        QStringLiteral(QUOR_SYSTEM_TESTS "/shell-main-application"), {QStringLiteral(QUOR_PROGRAMS)});
    EXPECT_TRUE(waitFor([&] { return countOf(blueOnScreen, shownItem()) > 20; }));
    script.write("\n"); // it has been seen: go on
    EXPECT_TRUE(waitFor([&] { return script.state() == QProcess::NotRunning; }));
    EXPECT_EQ(script.exitCode(), 0) << script.readAllStandardError().constData();
}

} // namespace
