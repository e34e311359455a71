// SPDX-License-Identifier: MIT
#include "Platform/Preferences/UserDefaults.h"
#include "Support/TemporaryDataHome.h"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using quor::platform::UserDefaults;

namespace {

const QString key = u"timerData"_s;

/// A value of one letter, which decides its size, so that a torn one can be recognised.
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

TEST_F(UserDefaultsFaultsTest, ReadersSeeWholeValuesWhileWritersDie)
{
    ASSERT_TRUE(defaults_.setObject(wholeValue(0), key));
    std::atomic<bool> isDone = false;
    std::thread writer([&] {
        for (int i = 0; !isDone; ++i)
            EXPECT_TRUE(defaults_.setObject(wholeValue(i), key));
    });
    for (int round = 0; round < 60; ++round) {
        const pid_t process = startWriter();
        for (int i = 0; i <= round; ++i) // so that each round kills at another moment
            EXPECT_TRUE(isWhole(defaults_.dataForKey(key)));
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        EXPECT_TRUE(isWhole(defaults_.dataForKey(key)));
    }
    isDone = true;
    writer.join();
    EXPECT_TRUE(defaults_.setObject(wholeValue(0), key));
    EXPECT_EQ(temporaries(), QStringList());
}

} // namespace
