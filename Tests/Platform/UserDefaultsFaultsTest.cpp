// SPDX-License-Identifier: MIT
#include "Platform/Preferences/UserDefaults.h"
#include "Support/TemporaryDataHome.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <atomic>
#include <csignal>
#include <thread>
#include <utility>

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
    /// A process that stores one value after the other, until it is killed.
    [[nodiscard]] pid_t startWriter() const
    {
        const pid_t child = fork();
        for (int i = 0; child == 0; ++i)
            defaults_.setObject(wholeValue(i), key);
        return child;
    }
    [[nodiscard]] QStringList temporaries() const
    {
        return QDir(folder_).entryList({u".*"_s}, QDir::Files | QDir::Hidden);
    }

    const quor::test::TemporaryDataHome home_;
    const UserDefaults defaults_ = UserDefaults::suite(u"suite"_s).value();
    const QString folder_ = home_.path(u"suite/Preferences"_s);
};

TEST_F(UserDefaultsFaultsTest, ReadersSeeWholeValuesWhoeverWritesOrDies)
{
    ASSERT_TRUE(defaults_.setObject(wholeValue(0), key));
    std::atomic<bool> isDone = false;
    std::thread writer([&] {
        for (int i = 0; !isDone; ++i)
            EXPECT_TRUE(defaults_.setObject(wholeValue(i), key));
    });
    for (int round = 0; round < 60; ++round) {
        const pid_t process = startWriter();
        for (int i = 0; i <= round; ++i) // kills at ever other moments
            EXPECT_TRUE(isWhole(defaults_.dataForKey(key)));
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        EXPECT_TRUE(isWhole(defaults_.dataForKey(key)));
    }
    isDone = true;
    writer.join();
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
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const auto unlimited = std::exchange(limit.rlim_cur, 4096);
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_FALSE(defaults_.setObject(QByteArray(5000, 'n'), key));
    limit.rlim_cur = unlimited;
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, before);
    EXPECT_EQ(defaults_.stringForKey(key), u"old");
    EXPECT_EQ(temporaries(), QStringList());
}

TEST_F(UserDefaultsFaultsTest, RefusesEndlessValues)
{
    QFile endless(folder_ + "/endless"_L1);
    ASSERT_TRUE(endless.open(QIODevice::WriteOnly) && endless.write("data\n") > 0);
    ASSERT_TRUE(endless.resize(qint64(1) << 40)); // sparse
    EXPECT_EQ(defaults_.dataForKey(u"endless"_s), std::nullopt);
}

} // namespace
