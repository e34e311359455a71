// SPDX-License-Identifier: MIT
// What many writers, dying writers and full disks do to a suite.
#include "Platform/Preferences/UserDefaults.h"
#include "Support/TemporaryDataHome.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using quor::platform::UserDefaults;

namespace {

const QString key = u"timerData"_s;

/// A value that shows any tear: its one letter tells its size.
QByteArray wholeValue(int number)
{
    return {1 + (number % 26) * 10'000, char('a' + number % 26)};
}

bool isWhole(const std::optional<QByteArray>& value)
{
    return value && !value->isEmpty() && *value == wholeValue(value->front() - 'a');
}

class UserDefaultsFaultsTest : public testing::Test {
protected:
    /// Runs `work` in a process of its own, which ends with its result.
    static pid_t fork(const std::function<bool()>& work)
    {
        const pid_t child = ::fork();
        if (child == 0)
            _exit(work() ? 0 : 1);
        return child;
    }
    static int wait(pid_t child)
    {
        int status = -1;
        waitpid(child, &status, 0);
        return status;
    }
    [[nodiscard]] bool writeForever() const
    {
        for (int i = 0; defaults_.setObject(wholeValue(i), key); ++i) { }
        return false;
    }
    [[nodiscard]] QStringList temporaries() const
    {
        return QDir(folder_).entryList({u".*"_s}, QDir::Files | QDir::Hidden);
    }

    const quor::test::TemporaryDataHome home_;
    const UserDefaults defaults_ = UserDefaults::suite(u"suite"_s).value();
    const QString folder_ = home_.path(u"suite/Preferences"_s);
};

TEST_F(UserDefaultsFaultsTest, AReaderNeverSeesATornValue)
{
    ASSERT_TRUE(defaults_.setObject(wholeValue(0), key));
    const pid_t process = fork([&] { return writeForever(); });
    std::atomic<bool> isDone = false;
    bool areAllStored = true;
    std::thread writer([&] {
        for (int i = 0; !isDone; ++i)
            areAllStored = defaults_.setObject(wholeValue(i), key) && areAllStored;
    });
    int torn = 0;
    for (int i = 0; i < 3000; ++i)
        torn += !isWhole(defaults_.dataForKey(key));
    isDone = true;
    writer.join();
    kill(process, SIGKILL);
    wait(process);
    EXPECT_EQ(torn, 0);
    EXPECT_TRUE(areAllStored);
}

TEST_F(UserDefaultsFaultsTest, AKilledWriterLeavesAWholeValueAndInTheEndNothingElse)
{
    ASSERT_TRUE(defaults_.setObject(wholeValue(25), key));
    for (int round = 0; round < 100; ++round) {
        const pid_t writer = fork([&] { return writeForever(); });
        for (int i = 0; i < round; ++i) // kills at ever other moments
            EXPECT_TRUE(isWhole(defaults_.dataForKey(key)));
        kill(writer, SIGKILL);
        EXPECT_TRUE(WIFSIGNALED(wait(writer)));
        ASSERT_TRUE(isWhole(defaults_.dataForKey(key))) << round;
    }
}

TEST_F(UserDefaultsFaultsTest, FilesOfDeadWritersGoInTheEnd)
{
    QFile young(folder_ + "/.new-young0"_L1);
    QFile old(folder_ + "/.new-old000"_L1);
    ASSERT_TRUE(young.open(QIODevice::WriteOnly) && old.open(QIODevice::WriteOnly));
    const auto yesterday = QDateTime::currentDateTime().addDays(-1);
    ASSERT_TRUE(old.setFileTime(yesterday, QFileDevice::FileModificationTime));
    for (int i = 0; i < 5000 && temporaries().size() > 1; ++i) // chance decides when, once in 62 writes
        defaults_.setObject(true, key);
    EXPECT_EQ(temporaries(), QStringList{u".new-young0"_s});
}

TEST_F(UserDefaultsFaultsTest, AValueThatDoesNotFitLeavesTheOldOne)
{
    ASSERT_TRUE(defaults_.setObject(u"old"_s, key));
    const int status = wait(fork([&] {
        const rlimit limit{.rlim_cur = 4096, .rlim_max = 4096};
        std::signal(SIGXFSZ, SIG_IGN);
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 && defaults_.setObject(u"new"_s, u"small"_s)
            && !defaults_.setObject(QByteArray(5000, 'n'), key);
    }));
    EXPECT_EQ(status, 0);
    EXPECT_EQ(defaults_.stringForKey(key), u"old");
    EXPECT_EQ(temporaries(), QStringList());
}

TEST_F(UserDefaultsFaultsTest, HoldsLargeValuesAndRefusesEndlessOnes)
{
    const QByteArray large(64 << 20, 'x');
    EXPECT_TRUE(defaults_.setObject(large, key));
    EXPECT_TRUE(defaults_.dataForKey(key) == large);
    QFile endless(folder_ + "/endless"_L1);
    ASSERT_TRUE(endless.open(QIODevice::WriteOnly));
    endless.write("data\n");
    ASSERT_TRUE(endless.resize(qint64(1) << 40)); // sparse
    EXPECT_EQ(defaults_.dataForKey(u"endless"_s), std::nullopt);
}

} // namespace
