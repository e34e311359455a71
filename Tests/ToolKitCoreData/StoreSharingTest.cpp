// SPDX-License-Identifier: MIT
#include "ToolKitCoreData/TestStore.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <functional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;

namespace quor::test {
namespace {

class StoreSharingTest : public StoreTest {
protected:
    /// Starts a process that opens the store and calls `work`. Its exit status is 0 on success.
    [[nodiscard]] pid_t start(const std::function<bool(Context&)>& work) const
    {
        const pid_t child = ::fork();
        if (child == 0) {
            Context context(path(), taskModel(), std::chrono::seconds(60));
            if (context.openError())
                std::fputs(qPrintable(context.openError()->description + u'\n'), stderr);
            ::_exit(!context.openError() && work(context) ? 0 : 1);
        }
        return child;
    }
    static int status(pid_t child)
    {
        int status = -1;
        ::waitpid(child, &status, 0);
        return status;
    }
};

TEST_F(StoreSharingTest, ProcessesSaveAtTheSameTime)
{
    // All create the file at the same time, and then write it.
    std::vector<pid_t> children;
    children.reserve(4);
    for (int child = 0; child < 4; ++child) {
        children.push_back(start([child](Context& context) {
            for (int i = 0; i < 50; ++i) {
                add(context, u"%1-%2"_s.arg(child).arg(i));
                if (!context.save())
                    return false;
            }
            return true;
        }));
    }
    for (const pid_t child : children)
        EXPECT_EQ(status(child), 0);
    EXPECT_EQ(open()->count<Task>(), 200);
}

TEST_F(StoreSharingTest, AKilledProcessLeavesWholeSaves)
{
    auto context = open();
    for (int round = 0; round < 5; ++round) {
        const pid_t child = start([](Context& writer) {
            while (true) {
                for (int i = 0; i < 100; ++i)
                    add(writer, u"x"_s, QString(500, u'x'));
                if (!writer.save())
                    return false;
            }
        });
        const auto before = context->count<Task>();
        while (context->count<Task>() < before + 300) // while it writes
            std::this_thread::yield();
        ::kill(child, SIGKILL);
        EXPECT_EQ(status(child), SIGKILL);
        EXPECT_EQ(open()->count<Task>() % 100, 0);
    }
    add(*context, u"y"_s);
    EXPECT_TRUE(context->save());
}

TEST_F(StoreSharingTest, TheLastWriterWinsByAttributeAndDeletionWins)
{
    auto here = open();
    auto there = open();
    Task mine = add(*here, u"1"_s, u"a"_s, 1);
    Task doomed = add(*here, u"2"_s, u"b"_s);
    Task kept = add(*here, u"3"_s, u"k"_s);
    ASSERT_TRUE(here->save());
    Task theirs = *there->fetchObject<Task>(u"1"_s);
    const Task theirDoomed = *there->fetchObject<Task>(u"2"_s);

    mine.setValue(u"mine"_s, u"name");
    mine.setValue(10, u"count");
    theirs.setValue(20, u"count");
    theirs.setValue(true, u"isDone");
    doomed.setValue(u"unsaved"_s, u"name");
    kept.setValue(u"K"_s, u"name");
    there->deleteObject(theirDoomed);
    ASSERT_TRUE(there->save());
    const SaveOutcome outcome = here->save();
    EXPECT_TRUE(outcome) << "the other changes are saved";
    EXPECT_EQ(outcome.dropped, std::vector<ManagedObject>{doomed});
    EXPECT_TRUE(doomed.isDeleted() && doomed.name() == u"unsaved"_s && !here->hasChanges());

    EXPECT_EQ(theirs.name(), u"a"_s) << "as it was loaded";
    EXPECT_EQ(names(there->fetch<Task>()), (QStringList{u"mine"_s, u"K"_s}));
    EXPECT_EQ(theirs.name(), u"mine"_s) << "as it was fetched";
    EXPECT_EQ(theirs.value<qint64>(u"count"), 10);
    EXPECT_EQ(theirs.value<bool>(u"isDone"), true);
    theirs.setValue(u"pending"_s, u"name");
    EXPECT_EQ(names(there->fetch<Task>()), (QStringList{u"pending"_s, u"K"_s}))
        << "a fetch overwrites no change";
}

TEST_F(StoreSharingTest, ThreadsTakeTurns)
{
    auto context = open();
    auto counter = add(*context, u"counter"_s);
    std::vector<std::thread> threads;
    threads.reserve(4);
    std::atomic<int> later = 0;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int i = 0; i < 50; ++i) {
                const auto made = context->performBlockAndWait([&] {
                    counter.setValue(*counter.value<qint64>(u"count") + 1, u"count");
                    return context->fetchSingleton<Task>(u"made %1"_s.arg(i)); // nested
                });
                EXPECT_TRUE(made.isAttached());
                context->performBlock([&] { later += context->save() ? 1 : 0; });
                (void)context->fetch<Task>(Predicate(u"name != %@", {u"x"_s}));
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    context.reset(); // waits for the saves
    EXPECT_EQ(later, 200);
    context = open();
    EXPECT_EQ(context->count<Task>(), 51);
    EXPECT_EQ(context->fetchObject<Task>(u"counter"_s)->value<qint64>(u"count"), 200);

    auto* const doomed = context.release();
    std::atomic<bool> isGone = false;
    doomed->performBlock([&] {
        delete doomed; // in its own block
        isGone = true;
        isGone.notify_one();
    });
    isGone.wait(false);
}

} // namespace
} // namespace quor::test
