// SPDX-License-Identifier: MIT
#include "ToolKit/Logging/Logger.h"
#include "Support/Files.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::SystemClock;

namespace {

class LoggerTest : public testing::Test {
protected:
    LoggerTest() { FileErrorLogger::setup(path()); }
    ~LoggerTest() override
    {
        FileErrorLogger::setEnabled(false);
        FileErrorLogger::setup(std::nullopt);
    }

    [[nodiscard]] QString path(const QString& name = {}) const { return folder_.filePath(u"logs/"_s + name); }
    [[nodiscard]] QStringList names() const
    {
        return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void create(const QString& name) const { EXPECT_TRUE(QFile(path(name)).open(QFile::WriteOnly)); }
    /// The lines of all files, as the date may change between two lines.
    [[nodiscard]] QByteArrayList lines() const
    {
        QByteArray text;
        for (const QString& name : names())
            text += quor::test::readFile(path(name));
        EXPECT_TRUE(text.endsWith('\n'));
        return text.chopped(1).split('\n');
    }

private:
    QTemporaryDir folder_;
};

TEST_F(LoggerTest, WritesPlaceAndMessageOnlyWhenOnAndAsked)
{
    Logger::log(u"off", true);
    FileErrorLogger::setEnabled(true);
    Logger::log(u"trace", false);
    EXPECT_EQ(names(), QStringList());

    Logger::log(u"grün", "Data/JSONHelper.cpp", "decode(data:type:decoder:)", 21, true);
    Logger::log(u"m", "/a.b/Two.Dots.h", "run", 1, true);
    Logger::log(u"here", true);
    const std::string here = "LoggerTest.TestBody:" + std::to_string(__LINE__ - 1) + ": here";
    std::string places;
    for (const QByteArray& line : lines())
        places += line.mid(27).toStdString() + '|';
    EXPECT_EQ(places, "JSONHelper.decode:21: grün|Two.Dots.run:1: m|" + here + '|');
}

TEST_F(LoggerTest, NamesTheFileByLocalDateAndStampsUtc)
{
    const QByteArray zone = qgetenv("TZ");
    double moment = 1794845964.9;
    for (const char* now : {"BEHIND+8", "AHEAD-14"}) { // the zone may change under a running process
        qputenv("TZ", now);
        FileErrorLogger::write(u"message", quor::platform::dateFromSeconds(moment++));
    }
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
    EXPECT_EQ(names(), QStringList({u"2026-11-16.log"_s, u"2026-11-17.log"_s}));
    EXPECT_EQ(lines(),
        QByteArrayList({"2026-11-16 16:19:24 +0000: message", "2026-11-16 16:19:25 +0000: message"}));
}

TEST_F(LoggerTest, PrunesByCreationAndNotByChange)
{
    create(u"a.log"_s);
    if (!QFileInfo(path(u"a.log"_s)).birthTime().isValid())
        GTEST_SKIP() << "the file system keeps no creation time";
    const auto setupAfter = [&](std::chrono::days age, int changedInDays) {
        QFile file(path(u"a.log"_s));
        const QDateTime changed = QDateTime::currentDateTime().addDays(changedInDays);
        EXPECT_TRUE(file.open(QFile::Append) && file.setFileTime(changed, QFile::FileModificationTime));
        FileErrorLogger::setup(path(), SystemClock().now() + age);
        return names().size();
    };
    EXPECT_EQ(setupAfter(std::chrono::days(6), -30), 1);
    EXPECT_EQ(setupAfter(std::chrono::days(8), 8), 0);
}

TEST_F(LoggerTest, TurningOffEmptiesTheFolderOfWhatIsVisible)
{
    for (const QString& name : {u"notes.txt"_s, u".hidden"_s, u"../outside"_s})
        create(name);
    EXPECT_TRUE(QDir(path()).mkdir(u"empty"_s) && QDir(path()).mkdir(u"full"_s));
    create(u"full/kept"_s);
    EXPECT_TRUE(QFile::link(path(u"../outside"_s), path(u"link"_s)));
    FileErrorLogger::setEnabled(true);
    FileErrorLogger::setEnabled(false);
    EXPECT_EQ(names(), QStringList({u".hidden"_s, u"full"_s}));
    EXPECT_TRUE(QFile::exists(path(u"full/kept"_s)) && QFile::exists(path(u"../outside"_s)));

    EXPECT_TRUE(QDir(path()).removeRecursively());
    FileErrorLogger::write(u"lost");
    EXPECT_FALSE(QFile::exists(path())) << "the folder comes back with the next setup only";
}

TEST_F(LoggerTest, LinesOfThreadsAndProcessesStayWhole)
{
    const auto moment = SystemClock().now();
    const auto writeAll = [&](int writer) {
        for (int i = 0; i < 500; ++i)
            FileErrorLogger::write(u"%1:%2:"_s.arg(writer).arg(i) + QString(300, u'x'), moment);
    };
    const pid_t child = fork();
    if (child == 0) {
        writeAll(0);
        _exit(0);
    }
    std::thread other(writeAll, 1);
    writeAll(2);
    other.join();
    EXPECT_EQ(waitpid(child, nullptr, 0), child);
    std::map<QByteArray, int>
        next; // the number of each writer's next line: they are in order, and none is lost
    for (const QByteArray& line : lines()) {
        const QByteArray writer = line.mid(27, 1);
        ASSERT_EQ(
            line.mid(27), writer + ':' + QByteArray::number(next[writer]++) + ':' + QByteArray(300, 'x'));
    }
    EXPECT_EQ(next["0"] + next["1"] + next["2"], 1500);
}

} // namespace
