// SPDX-License-Identifier: MIT
// The helper and the example's main application as two processes.
#include "Support/TemporaryDataHome.h"
#include "Support/WaitFor.h"
#include "System/Bar.h"
#include "System/Program.h"

#include <gtest/gtest.h>

using namespace quor;
using namespace quor::test;
using namespace Qt::StringLiterals;

namespace {

TEST(PeerAndHelper, ShowStartsStopsAndSettingsAsTheyHappen)
{
    const TemporaryDataHome home;
    Program main(u"quor-peer"_s, {u"serve"_s});
    ASSERT_TRUE(waitFor([] {
        Program probe(u"quor-peer"_s, {u"status"_s});
        return probe.ends() && probe.exitCode() == 0;
    }));
    peer({u"add"_s, u"Design"_s, u"--color"_s, u"00CA8F"_s});
    peer({u"set"_s, u"menuBarShowDailyTotal=true"_s, u"menuBarShowActiveTask=true"_s,
        u"menuBarShowDayProgress=false"_s, u"menuBarShowRunningTimer=true"_s});

    Program helper(u"quor-menubar-helper"_s);
    const QImage idle = nextItem({});
    ASSERT_FALSE(idle.isNull()) << qPrintable(helper.errors());

    const QColor green(0x00, 0xCA, 0x8F);
    peer({u"start"_s, u"Design"_s});
    const QImage running = nextItem(idle);
    EXPECT_GT(countOf(green, running), 20);

    peer({u"set"_s, u"menuBarShowActiveTask=false"_s});
    EXPECT_LT(nextItem(running).width(), running.width());

    peer({u"stop"_s});
    EXPECT_TRUE(waitFor([&] { return countOf(green, shownItem()) == 0; }));

    peer({u"kill-helper"_s});
    EXPECT_TRUE(helper.ends());
    EXPECT_EQ(helper.exitCode(), 0) << qPrintable(helper.errors());
}

} // namespace
