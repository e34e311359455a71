// SPDX-License-Identifier: MIT
#include "ToolKit/Logging/Logger.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ctime>
#include <map>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::dateFromSeconds;
using quor::platform::SystemClock;

namespace {

constexpr double day = 86400;

class LoggerTest : public testing::Test {
protected:
    LoggerTest() { FileErrorLogger::setup(path()); }
    ~LoggerTest() override
    {
        FileErrorLogger::setEnabled(false);
        FileErrorLogger::setup(std::nullopt);
    }

    [[nodiscard]] QString path(const QString& name = u"logs"_s) const { return folder_.filePath(name); }
    [[nodiscard]] QStringList names() const
    {
        return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void create(const QString& name) const
    {
        EXPECT_TRUE(QFile(path() + u'/' + name).open(QFile::WriteOnly));
    }
    /// All lines of the folder's logs, in the order of the files' names.
    [[nodiscard]] QByteArrayList lines() const
    {
        QByteArray all;
        for (const QString& name : names()) {
            QFile file(path() + u'/' + name);
            EXPECT_TRUE(file.open(QFile::ReadOnly));
            all += file.readAll();
        }
        EXPECT_TRUE(all.isEmpty() || all.endsWith('\n'));
        all.chop(1);
        return all.isEmpty() ? QByteArrayList() : all.split('\n');
    }

private:
    QTemporaryDir folder_;
};

TEST_F(LoggerTest, WritesPlaceAndMessageOnlyWhenOnAndAsked)
{
    Logger::log(u"off", true);
    EXPECT_EQ(names(), QStringList());
    FileErrorLogger::setEnabled(true);
    Logger::log(u"trace", false);
    EXPECT_EQ(names(), QStringList());

    struct Case {
        const char* file;
        const char* function;
        const char* place;
    };
    for (const auto& [file, function, place] : std::initializer_list<Case>{
             {"Data/JSONHelper.cpp", "decode(data:type:decoder:)", "JSONHelper.decode:21: "},
             {"/a.b/Two.Dots.h", "run", "Two.Dots.run:21: "},
             {"Plain", "void f(int (*)(char)) const", "Plainvoid f const:21: "},
             {"A.cpp", "a)b(c", "A.a)b(c:21: "},
         }) {
        FileErrorLogger::removeLogs(0);
        Logger::log(u"grün", file, function, 21, true);
        EXPECT_EQ(lines().value(0).mid(27), QByteArray(place) + "grün") << place;
    }
    FileErrorLogger::removeLogs(0);
    Logger::log(u"here", true);
    const QByteArray here = lines().value(0);
    EXPECT_TRUE(here.contains(": LoggerTest.TestBody:") && here.endsWith(": here")) << here.toStdString();
}

TEST_F(LoggerTest, NamesTheFileByLocalDateAndStampsUtc)
{
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "AHEAD-14");
    tzset();
    const auto moment = dateFromSeconds(1794845964.9);
    FileErrorLogger::write(u"first", moment);
    FileErrorLogger::write(u"two\r\nlines", moment);
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
    tzset();
    EXPECT_EQ(names(), QStringList(u"2026-11-17.log"_s));
    EXPECT_EQ(lines(),
        QByteArrayList({"2026-11-16 16:19:24 +0000: first", "2026-11-16 16:19:24 +0000: two\\r\\nlines"}));
}

TEST_F(LoggerTest, PrunesByCreationAndNotByChange)
{
    create(u"a.log"_s);
    QFile file(path() + u"/a.log"_s);
    const QDateTime now = QDateTime::currentDateTime();
    const auto changed = [&](int days) {
        EXPECT_TRUE(file.open(QFile::Append));
        EXPECT_TRUE(file.setFileTime(now.addDays(days), QFileDevice::FileModificationTime));
        file.close();
    };
    changed(-30);
    FileErrorLogger::setup(path(), SystemClock().now() + std::chrono::days(6));
    EXPECT_EQ(names().size(), 1);
    changed(8);
    FileErrorLogger::setup(path(), SystemClock().now() + std::chrono::days(8));
    EXPECT_EQ(names().size(), 0);
    create(u"a.log"_s);
    FileErrorLogger::removeLogs(-day, SystemClock().now() - std::chrono::hours(1));
    EXPECT_EQ(names().size(), 0) << "a negative age reaches into the future";
}

TEST_F(LoggerTest, TurningOffEmptiesTheFolderOfWhatIsVisible)
{
    create(u"notes.txt"_s);
    create(u".hidden"_s);
    EXPECT_TRUE(QDir(path()).mkdir(u"empty"_s) && QDir(path()).mkdir(u"full"_s));
    create(u"full/kept"_s);
    create(u"../outside"_s);
    EXPECT_TRUE(QFile::link(path(u"outside"_s), path() + u"/link"_s));
    FileErrorLogger::setEnabled(true);
    EXPECT_EQ(names().size(), 5) << "turning on removes nothing";
    FileErrorLogger::setEnabled(false);
    EXPECT_EQ(names(), QStringList({u".hidden"_s, u"full"_s}));
    EXPECT_TRUE(QFile::exists(path(u"logs/full/kept"_s)) && QFile::exists(path(u"outside"_s)));
}

TEST_F(LoggerTest, FaultsLoseLinesAndNothingElse)
{
    EXPECT_EQ(FileErrorLogger::logDirectory(), path());
    EXPECT_TRUE(QDir(path()).removeRecursively());
    FileErrorLogger::write(u"lost");
    EXPECT_FALSE(QFile::exists(path())) << "the folder comes back with the next setup only";
    FileErrorLogger::setup(path(u"logs/deep/er"_s));
    FileErrorLogger::write(u"kept");
    EXPECT_EQ(QDir(path(u"logs/deep/er"_s)).count(), 3U);

    EXPECT_TRUE(QFile(path(u"file"_s)).open(QFile::WriteOnly));
    for (const QString& unusable : {path(u"file"_s), u"/proc/none"_s, QString()}) {
        FileErrorLogger::setup(unusable);
        FileErrorLogger::write(u"lost");
        FileErrorLogger::removeLogs(0);
    }
    EXPECT_EQ(QFile(path(u"file"_s)).size(), 0);
    EXPECT_EQ(FileErrorLogger::logDirectory(), std::nullopt);
}

TEST_F(LoggerTest, LinesOfThreadsAndProcessesStayWhole)
{
    constexpr int perWriter = 500;
    const QString tail(300, u'x');
    const auto writeAll = [&](int writer) {
        for (int i = 0; i < perWriter; ++i)
            FileErrorLogger::write(u"%1:%2:"_s.arg(writer).arg(i) + tail);
    };
    std::vector<pid_t> children;
    for (const int writer : {0, 1}) {
        children.push_back(fork());
        if (children.back() == 0) {
            writeAll(writer);
            _exit(0);
        }
    }
    std::vector<std::thread> threads;
    for (const int writer : {2, 3})
        threads.emplace_back(writeAll, writer);
    for (auto& thread : threads)
        thread.join();
    for (const pid_t child : children) {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }

    std::map<QByteArray, int> next; // what each writer's next line is: in order, none lost
    for (const QByteArray& line : lines()) {
        const QByteArrayList fields = line.mid(27).split(':');
        ASSERT_EQ(fields.size(), 3);
        ASSERT_EQ(fields[1].toInt(), next[fields[0]]++);
        ASSERT_EQ(fields[2], tail.toLatin1());
    }
    for (const char* writer : {"0", "1", "2", "3"})
        EXPECT_EQ(next[writer], perWriter);
}

} // namespace
