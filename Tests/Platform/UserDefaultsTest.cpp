// SPDX-License-Identifier: MIT
#include "Platform/Preferences/UserDefaults.h"

#include "Platform/Preferences/DataHome.h"
#include "Support/Files.h"
#include "Support/TemporaryDataHome.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <atomic>
#include <csignal>
#include <limits>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;
using quor::platform::UserDefaults;
using quor::test::readFile;
using quor::test::writeFile;

namespace {

const QString suiteName = u"QX77Z4012M.com.quor-app"_s;

/// A value of one letter, which decides its size, so that a torn one can be recognised.
QByteArray wholeValue(int number)
{
    return {1 + (number % 26) * 10'000, char('a' + number % 26)};
}

bool isWhole(const std::optional<QByteArray>& value)
{
    return value && !value->isEmpty() && *value == wholeValue(value->front() - 'a');
}

class UserDefaultsTest : public testing::Test {
protected:
    [[nodiscard]] QString folder() const { return home_.path(suiteName + "/Preferences"_L1); }
    /// Starts a process that stores one value after the other, until it is killed.
    [[nodiscard]] pid_t startWriter() const
    {
        const pid_t child = fork();
        if (child == 0) {
            for (int i = 0;; ++i)
                defaults_.setObject(wholeValue(i), u"timerData"_s);
        }
        return child;
    }
    const quor::test::TemporaryDataHome home_;
    const UserDefaults defaults_ = UserDefaults::suite(suiteName).value();
};

TEST_F(UserDefaultsTest, WritesWhatAShellCanRead)
{
    EXPECT_TRUE(defaults_.setObject(u"größer"_s, u"text"_s) && defaults_.setObject(false, u"flag"_s));
    EXPECT_TRUE(defaults_.setObject(0.1 + 0.2, u"length"_s));
    EXPECT_FALSE(defaults_.setObject(std::numeric_limits<double>::infinity(), u"length"_s));
    QByteArray written;
    for (const auto& name : {u"/text"_s, u"/flag"_s, u"/length"_s})
        written += readFile(folder() + name);
    EXPECT_EQ(written, "string\ngrößerbool\nfalsereal\n0.30000000000000004");
}

TEST_F(UserDefaultsTest, ConvertsBetweenTypes)
{
    const std::tuple<QByteArray, std::optional<QByteArray>, std::optional<QString>, bool, double> cases[]
        = {{"data\n\0a\n"_ba, "\0a\n"_ba, {}, false, 0}, {"string\ntrue"_ba, {}, u"true"_s, true, 0},
            {"string\n-1.5e3"_ba, {}, u"-1.5e3"_s, false, -1500},
            {"string\n\uFEFFa"_ba, {}, u"\uFEFFa"_s, false, 0}, // a mark that decoders like to drop
            {"string\na\xC3"_ba, {}, {}, false, 0}, {"bool\ntrue"_ba, {}, {}, true, 0},
            {"real\n0.5"_ba, {}, {}, true, 0.5}, {"real\n28800\n"_ba, {}, {}, true, 28800},
            {"real\ninf"_ba, {}, {}, false, 0}, {"integer\n1"_ba, {}, {}, false, 0},
            {"data"_ba, {}, {}, false, 0}};
    for (const auto& [content, data, string, boolean, real] : cases) {
        ASSERT_TRUE(writeFile(folder() + "/key"_L1, content));
        const UserDefaults read = UserDefaults::suiteOrStandard(suiteName);
        EXPECT_EQ(read.dataForKey(u"key"_s), data) << content.toStdString();
        EXPECT_EQ(read.stringForKey(u"key"_s), string);
        EXPECT_EQ(read.boolForKey(u"key"_s), boolean) << content.toStdString();
        EXPECT_EQ(read.doubleForKey(u"key"_s), real) << content.toStdString();
    }
}

TEST_F(UserDefaultsTest, EscapesKeysInFileNames)
{
    const QString names[][2] = {
        {u"aZ09._-"_s, u"aZ09._-"_s}, {u"../up"_s, u"%2E.%2Fup"_s}, {u"100% ü\n"_s, u"100%25%20%C3%BC%0A"_s}};
    for (const auto& [key, fileName] : names) {
        EXPECT_TRUE(defaults_.setObject(1.5, key));
        EXPECT_EQ(readFile(folder() + u'/' + fileName), "real\n1.5") << fileName.toStdString();
        ASSERT_TRUE(writeFile(folder() + u'/' + fileName, "real\n2.5"));
        EXPECT_EQ(defaults_.doubleForKey(key), 2.5) << fileName.toStdString();
        EXPECT_TRUE(defaults_.removeObject(key));
    }
    for (const auto& key : {QString(), QString(300, u'k'), QString(QChar(0xD800))})
        EXPECT_FALSE(defaults_.setObject(true, key) || defaults_.boolForKey(key));
    EXPECT_TRUE(QDir(folder()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST_F(UserDefaultsTest, MakesItsFoldersAndFilesForTheUserAlone)
{
    qputenv("XDG_DATA_HOME", home_.path(u"not/there"_s).toUtf8());
    const auto lazy = UserDefaults::suiteOrStandard(u"new"_s);
    EXPECT_TRUE(lazy.setObject(true, u"key"_s));
    const QString made = home_.path(u"not/there/new/Preferences"_s);
    for (const auto& path : {home_.path(u"not/there"_s), made, made + "/key"_L1})
        EXPECT_FALSE(QFile::permissions(path) & 0x77) << path.toStdString(); // of the group and of others
    QDir(made).removeRecursively();
    EXPECT_TRUE(lazy.setObject(true, u"key"_s)) << "a folder that was taken away comes back";
}

TEST_F(UserDefaultsTest, StandardDefaultsStandInForASuiteThatCannotBeOpened)
{
    ASSERT_TRUE(writeFile(home_.path(u"blocked"_s), {}));
    const QString before = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName(u"com.example.Standard"_s);
    const QString file = home_.path(u"com.example.Standard/Preferences/key"_s);
    for (const auto& name : {u"blocked"_s, u"../outside"_s, u".."_s, u"."_s, u""_s, u"nul\0x"_s}) {
        EXPECT_FALSE(UserDefaults::suite(name)) << name.toStdString();
        EXPECT_TRUE(UserDefaults::suiteOrStandard(name).setObject(name, u"key"_s));
        EXPECT_EQ(readFile(file), "string\n" + name.toUtf8());
        ASSERT_TRUE(writeFile(file, "real\n2.5"));
        EXPECT_EQ(UserDefaults::suiteOrStandard(name).doubleForKey(u"key"_s), 2.5) << name.toStdString();
        EXPECT_EQ(UserDefaults::standard().doubleForKey(u"key"_s), 2.5);
    }
    QCoreApplication::setApplicationName(before);
    EXPECT_FALSE(UserDefaults::suiteOrStandard(suiteName).boolForKey(u"key"_s))
        << "a suite that can be opened but has no such key";
}

TEST_F(UserDefaultsTest, TakesRegularFilesOfBoundedSizeOnly)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(folder() + "/pipe"_L1).constData(), 0600), 0);
    ASSERT_TRUE(QDir(folder()).mkdir(u"folder"_s));
    QFile endless(folder() + "/endless"_L1);
    ASSERT_TRUE(endless.open(QIODevice::WriteOnly) && endless.write("data\n") > 0);
    ASSERT_TRUE(endless.resize(qint64(1) << 40)); // sparse
    for (const auto& key : {u"pipe"_s, u"folder"_s, u"endless"_s})
        EXPECT_EQ(defaults_.dataForKey(key), std::nullopt) << key.toStdString();
    EXPECT_TRUE(defaults_.setObject(true, u"pipe"_s));
    EXPECT_FALSE(defaults_.setObject(true, u"folder"_s) || defaults_.removeObject(u"folder"_s));
}

TEST_F(UserDefaultsTest, LiveInTheUsersHomeForWantOfADataHome)
{
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", "/home/somebody");
    for (const char* unusable : {"", "relative/path"}) {
        qputenv("XDG_DATA_HOME", unusable);
        EXPECT_EQ(quor::platform::dataHome(), "/home/somebody/.local/share");
    }
    qunsetenv("HOME");
    EXPECT_EQ(UserDefaults::suite(suiteName), std::nullopt);
    qputenv("HOME", home);
}

TEST_F(UserDefaultsTest, ReadersSeeWholeValuesWhileWritersDie)
{
    const QString key = u"timerData"_s;
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
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files | QDir::Hidden), QStringList{key});
}

} // namespace
