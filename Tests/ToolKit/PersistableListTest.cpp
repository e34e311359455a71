// SPDX-License-Identifier: MIT
#include "ToolKit/Data/PersistableList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <limits>
#include <thread>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;
using testing::Contains;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

constexpr int cannotMount = 77;

class PersistableListTest : public testing::Test {
protected:
    [[nodiscard]] QString path(const QString& name = {}) const
    {
        return folder_.filePath(u"above/list"_s) + (name.isEmpty() ? name : u'/' + name);
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] QByteArray content(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }
    void put(const QString& name, const QByteArray& content) const
    {
        QDir().mkpath(path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    // Whatever was submitted before has run once a synchronous call returns.
    static void flush(PersistableList<double>& list)
    {
        list.flush();
        (void)list.isEmpty();
    }

    QTemporaryDir folder_;
};

TEST_F(PersistableListTest, KeepsKeysWithTheSameEndInOneFile)
{
    PersistableList<double> list(path());
    EXPECT_TRUE(list.isEmpty());
    list.set(1, u"abcd"_s);
    list.set(2, u"ABCD"_s);
    list.set(3, u"x"_s);
    EXPECT_EQ(list.value(u"abcd"_s), 1) << "a look-up sees what was set before it";
    EXPECT_FALSE(QDir(path()).exists()) << "nothing reaches the disk before the flush";
    flush(list);
    EXPECT_THAT(files(), UnorderedElementsAre(u"CD"_s, u"X"_s));
    EXPECT_EQ(content(u"X"_s), "{\"x\":3}");

    PersistableList<double> again(path());
    EXPECT_FALSE(again.isEmpty());
    EXPECT_EQ(again.value(u"cd"_s), std::nullopt);
    EXPECT_THAT(again.entries(9),
        UnorderedElementsAre(std::pair(u"abcd"_s, 1.0), std::pair(u"ABCD"_s, 2.0), std::pair(u"x"_s, 3.0)));
    EXPECT_EQ(again.keys(2).size(), 2U);
    EXPECT_THAT(again.keys(0), IsEmpty());
    EXPECT_THAT(again.keys(std::numeric_limits<qint64>::min()), IsEmpty());

    list.removeValue(u"abcd"_s);
    EXPECT_EQ(list.value(u"abcd"_s), std::nullopt);
    EXPECT_THAT(files(), Contains(u"CD"_s)) << "another key is in it";
    list.removeValue(u"ABCD"_s);
    EXPECT_EQ(list.keys(9), std::vector{u"x"_s});
    EXPECT_EQ(files(), QStringList{u"X"_s}) << "it goes with its last key";
}

TEST_F(PersistableListTest, LivesInMemoryWithoutAFolder)
{
    PersistableList<> list(std::nullopt);
    list.set(u"text"_s, u"a"_s);
    list.flush();
    EXPECT_EQ(list.value(u"a"_s), QJsonValue(u"text"_s));
    EXPECT_THAT(list.allKeys(), UnorderedElementsAre(u"a"_s));
    list.clear();
    EXPECT_TRUE(list.isEmpty());
}

TEST_F(PersistableListTest, ClearRemovesTheFolderAndOnlyIt)
{
    put(u"AB"_s, "{\"ab\":1}");
    put(u".hidden"_s, "");
    QDir(path()).mkdir(u"sub"_s);
    put(u"sub/CD"_s, "");
    QFile::link(folder_.path(), path(u"LI"_s));
    PersistableList<double> list(path());
    EXPECT_EQ(list.allKeys(), std::vector{u"ab"_s});
    list.set(1, u"new"_s);
    list.clear();
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(QDir(folder_.filePath(u"above"_s)).count(), 2U) << "nothing but . and ..";
}

TEST_F(PersistableListTest, NoKeyLeadsOutOfTheFolder)
{
    const QString zalgo = u"e"_s + QString(300, QChar(0x301));
    const QString cases[][2] = {{u"/"_s, u"%2F"_s}, {u".."_s, u"%2E."_s}, {u"a."_s, u"A."_s},
        {u".a"_s, u"%2EA"_s}, {u"50%"_s, u"0%25"_s}, {u"2F"_s, u"2F"_s}, {QString(QChar(0)), u"%00"_s},
        {u"\r\n"_s, u"%0D%0A"_s}, {u"a\u0085"_s, u"A%C2%85"_s}, {u"xaß"_s, u"ASS"_s},
        {u"\ufb03\u0390"_s, u"FFI\u0399\u0308\u0301"_s}, {u"x\u00e9e\u0301"_s, u"\u00c9E\u0301"_s},
        {u"12\U0001F468\u200D\U0001F469"_s, u"2\U0001F468\u200D\U0001F469"_s},
        {u"\ufeffa"_s, u"%EF%BB%BFA"_s}, {u"\u0600ab"_s, u"\u0600AB"_s},
        {u"x"_s + zalgo, u"XE"_s + QString(126, QChar(0x301))}};
    QSet<QString> names;
    PersistableList<double> list(path());
    for (const auto& none : {QString(), u"a"_s + QChar(0xD83D)}) {
        list.set(1, none);
        list.removeValue(none);
        EXPECT_EQ(list.value(none), std::nullopt);
    }
    EXPECT_TRUE(list.isEmpty());
    for (const auto& [key, name] : cases) {
        EXPECT_EQ(storageKey(key).toStdString(), name.toStdString());
        list.set(double(names.size()), key);
        names.insert(name);
    }
    flush(list);
    const auto stored = files();
    EXPECT_EQ(QSet(stored.begin(), stored.end()), names);
    EXPECT_EQ(
        QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
    EXPECT_EQ(PersistableList<double>(path()).allKeys().size(), std::size(cases)) << "none is hidden";
    for (const auto& [key, name] : cases)
        EXPECT_TRUE(list.value(key)) << qPrintable(key);
}

TEST_F(PersistableListTest, UnreadableFilesReadAsEmptyAndAreReplaced)
{
    for (const char* text : {"", "3", "[]", "{\"ab\":1", "{\"ab\":\"1\"}", "{\"xab\":1,\"ab\":null}"}) {
        put(u"AB"_s, text);
        PersistableList<double> list(path());
        EXPECT_EQ(list.value(u"ab"_s), std::nullopt) << text;
        list.set(5, u"xab"_s);
        flush(list);
        EXPECT_EQ(content(u"AB"_s), "{\"xab\":5}");
    }
    put(u"AB"_s, "{\"ab\":\"longer\"}");
    PersistableList<double> list(path());
    EXPECT_THAT(list.allKeys(), IsEmpty());
    flush(list);
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(PersistableListTest, LinksFoldersAndPipesAreNoFilesOfTheList)
{
    const QString outside = folder_.filePath(u"outside"_s);
    QFile file(outside);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("{\"li\":1}") == 8);
    file.close();
    QDir().mkpath(path(u"DI"_s));
    QFile::link(outside, path(u"LI"_s));
    ASSERT_EQ(mkfifo(qPrintable(path(u"PI"_s)), 0600), 0);
    PersistableList<double> list(path());
    EXPECT_TRUE(list.isEmpty());
    for (const auto& key : {u"li"_s, u"di"_s, u"pi"_s}) {
        EXPECT_EQ(list.value(key), std::nullopt);
        list.set(2, key);
    }
    flush(list);
    EXPECT_EQ(content(u"LI"_s), "{\"li\":2}") << "the file stands in the link's place";
    EXPECT_EQ(QFileInfo(outside).size(), 8);
    EXPECT_EQ(list.value(u"di"_s), 2) << "what cannot be written stays in memory";
}

TEST_F(PersistableListTest, WhatAFlushCannotWriteStaysForTheNext)
{
    put(u"AB"_s, "{\"ab\":1}");
    PersistableList<double> list(path());
    list.set(std::numeric_limits<double>::infinity(), u"xab"_s);
    flush(list);
    EXPECT_EQ(content(u"AB"_s), "{\"ab\":1}");
    list.set(2, u"xab"_s);
    list.flush();
    EXPECT_EQ(list.value(u"ab"_s), 1);
    EXPECT_EQ(PersistableList<double>(path()).value(u"xab"_s), 2);
}

bool say(const char* path, const QByteArray& text)
{
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
}

// Any user may do so within namespaces of this process alone, where the system allows them.
bool mountTinyDisk(const QString& folder)
{
    const auto user = QByteArray::number(geteuid());
    const auto group = QByteArray::number(getegid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && say("/proc/self/setgroups", "deny")
        && say("/proc/self/uid_map", "0 " + user + " 1") && say("/proc/self/gid_map", "0 " + group + " 1")
        && mount("none", qPrintable(folder), "tmpfs", 0, "size=64k") == 0;
}

int writeOnAFullDisk(const QString& folder)
{
    if (!mountTinyDisk(folder))
        return cannotMount;
    const FileManager files;
    const QByteArray tooMuch(1 << 20, 'x');
    const bool isFirstWritten = files.write("{\"ab\":1}", folder + u"/AB"_s);
    const bool isKept
        = !files.write(tooMuch, folder + u"/AB"_s) && files.contents(folder + u"/AB"_s) == "{\"ab\":1}";
    const bool leavesNothing
        = !files.write(tooMuch, folder + u"/CD"_s) && !files.itemExists(folder + u"/CD"_s);
    return isFirstWritten && isKept && leavesNothing ? 0 : 1;
}

TEST_F(PersistableListTest, AFullDiskLeavesTheOldContent)
{
    QDir().mkpath(path());
    const pid_t child = fork();
    if (child == 0)
        _exit(writeOnAFullDisk(path()));
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    if (WEXITSTATUS(status) == cannotMount)
        GTEST_SKIP() << "this system lets no user mount";
    EXPECT_EQ(status, 0);
}

TEST_F(PersistableListTest, ThreadsShareAListAndItsEndWaitsForThem)
{
    constexpr int threadCount = 4;
    constexpr int keyCount = 200;
    {
        PersistableList<double> list(path());
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < threadCount; ++thread)
            threads.emplace_back([&list, thread] {
                for (int i = 0; i < keyCount; ++i) {
                    const QString key = u"%1-%2"_s.arg(thread).arg(i);
                    list.set(i, key);
                    EXPECT_EQ(list.value(key), i);
                    if (i % 2)
                        list.removeValue(key);
                    if (i % 50 == thread)
                        list.flush();
                }
                list.flush();
            });
        threads.clear();
    } // waits for the flush
    EXPECT_EQ(PersistableList<double>(path()).allKeys().size(), std::size_t(threadCount * keyCount / 2));
}

} // namespace
