// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Lists/PersistableList.h"
#include "Support/Files.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <csignal>
#include <functional>
#include <limits>
#include <thread>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;
using quor::test::readFile;
using quor::test::writeFile;
using testing::UnorderedElementsAre;

namespace {

using List = PersistableList<double>;

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
    [[nodiscard]] QByteArray content(const QString& name) const { return readFile(path(name)); }
    void put(const QString& name, const QByteArray& content) const
    {
        QDir().mkpath(path());
        ASSERT_TRUE(writeFile(path(name), content));
    }
    static void flush(PersistableList<double>& list)
    {
        list.flush();
        (void)list.isEmpty(); // returns after all earlier changes
    }

    QTemporaryDir folder_;
};

TEST_F(PersistableListTest, KeepsKeysWithTheSameEndInOneFile)
{
    PersistableList<double> list(path());
    list.set(1, u"abcd"_s);
    list.set(2, u"ABCD"_s);
    list.set(3, u"x"_s);
    EXPECT_EQ(list.value(u"abcd"_s), 1) << "a look-up sees what was set before it";
    EXPECT_FALSE(QDir(path()).exists()) << "nothing reaches the disk before the flush";
    flush(list);
    EXPECT_THAT(files(), UnorderedElementsAre(u"CD"_s, u"X"_s));
    EXPECT_EQ(content(u"X"_s), "{\"x\":3}");

    PersistableList<double> again(path());
    EXPECT_EQ(again.value(u"cd"_s), std::nullopt);
    EXPECT_THAT(again.entries(9),
        UnorderedElementsAre(
            List::Entry{.key = u"abcd"_s, .value = 1}, List::Entry{u"ABCD"_s, 2}, List::Entry{u"x"_s, 3}));

    list.removeValue(u"abcd"_s);
    EXPECT_EQ(files().size(), 2) << "another key is in it";
    list.removeValue(u"ABCD"_s);
    EXPECT_EQ(list.keys(9), std::vector{u"x"_s});
    EXPECT_EQ(files(), QStringList{u"X"_s}) << "it goes with its last key";
}

TEST_F(PersistableListTest, ClearRemovesTheFolderIfAnyAndOnlyIt)
{
    put(u"AB"_s, "{\"ab\":1}");
    put(u".hidden"_s, "");
    QDir(path()).mkpath(u"sub/CD"_s);
    QFile::link(folder_.path(), path(u"LI"_s));
    PersistableList<double> list(path());
    EXPECT_EQ(list.allKeys(), std::vector{u"ab"_s});
    list.clear();
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(QDir(folder_.filePath(u"above"_s)).count(), 2U) << "nothing but . and ..";

    PersistableList<> inMemory(std::nullopt);
    inMemory.set(u"text"_s, u"a"_s);
    inMemory.flush();
    EXPECT_EQ(inMemory.value(u"a"_s), QJsonValue(u"text"_s));
}

TEST_F(PersistableListTest, NoKeyLeadsOutOfTheFolder)
{
    const QString zalgo = u"e"_s + QString(300, QChar(0x301));
    const QString cases[][2]
        = {{u"/"_s, u"%2F"_s}, {u".."_s, u"%2E."_s}, {u"50%"_s, u"0%25"_s}, {QString(QChar(0)), u"%00"_s},
            {u"a\u0085"_s, u"A%C2%85"_s}, {u"x\u00e9e\u0301"_s, u"\u00c9E\u0301"_s},
            {u"12\U0001F468\u200D\U0001F469"_s, u"2\U0001F468\u200D\U0001F469"_s},
            {u"\ufeffa"_s, u"%EF%BB%BFA"_s}, {u"x"_s + zalgo, u"XE"_s + QString(126, QChar(0x301))}};
    QStringList names;
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
        names.append(name);
    }
    flush(list);
    EXPECT_THAT(files(), testing::UnorderedElementsAreArray(names));
    EXPECT_EQ(PersistableList<double>(path()).allKeys().size(), std::size(cases)) << "none is hidden";
}

TEST_F(PersistableListTest, UnreadableFilesReadAsEmptyAndAreReplaced)
{
    for (const char* text : {"", "3", "[]", R"({"ab":1)", R"({"ab":"1"})", R"({"xab":1,"ab":null})"}) {
        put(u"AB"_s, text);
        PersistableList<double> list(path());
        EXPECT_EQ(list.value(u"ab"_s), std::nullopt) << text;
        list.set(5, u"xab"_s);
        flush(list);
        EXPECT_EQ(content(u"AB"_s), "{\"xab\":5}");
    }
    // Changes that a flush cannot write stay in memory for the next one.
    put(u"AB"_s, "{\"ab\":1}");
    PersistableList<double> list(path());
    list.set(std::numeric_limits<double>::infinity(), u"xab"_s);
    flush(list);
    EXPECT_EQ(content(u"AB"_s), "{\"ab\":1}");
    list.set(2, u"xab"_s);
    flush(list);
    EXPECT_THAT(PersistableList<double>(path()).allKeys(), UnorderedElementsAre(u"ab"_s, u"xab"_s));
}

TEST_F(PersistableListTest, NothingIsLostWhileNoFileCanBeOpened)
{
    PersistableList<double> list(path());
    (void)list.isEmpty(); // the list needs no descriptor of its own later
    const struct {
        std::function<void()> use;
        QByteArray content;
    } cases[] = {
        {[&] { EXPECT_EQ(list.value(u"1ab"_s), std::nullopt); }, "{\"1ab\":1}"},
        {[&] { list.removeValue(u"2ab"_s); }, "{\"1ab\":1}"},
        {[&] { list.removeValue(u"1ab"_s), list.set(2, u"1ab"_s); }, "{\"1ab\":2}"},
    };
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit none{0, limit.rlim_max};
    for (const auto& c : cases) {
        put(u"AB"_s, "{\"1ab\":1}");
        setrlimit(RLIMIT_NOFILE, &none);
        c.use();
        flush(list);
        setrlimit(RLIMIT_NOFILE, &limit);
        EXPECT_EQ(content(u"AB"_s), "{\"1ab\":1}");
        flush(list);
        EXPECT_EQ(content(u"AB"_s), c.content);
    }
}

TEST_F(PersistableListTest, AFileThatMustNotBeReadStays)
{
    put(u"AB"_s, "{\"1ab\":1}");
    ASSERT_EQ(chmod(qPrintable(path(u"AB"_s)), 0), 0);
    ASSERT_EQ(chmod(qPrintable(path()), 0777), 0);
    ASSERT_EQ(chmod(qPrintable(folder_.path()), 0777), 0);
    List list(path());
    const uid_t user = geteuid(); // permissions do not bind root
    ASSERT_TRUE(user != 0 || seteuid(65'534) == 0);
    list.set(2, u"2ab"_s);
    list.removeValue(u"3ab"_s);
    flush(list);
    ASSERT_TRUE(user != 0 || seteuid(user) == 0);
    ASSERT_EQ(chmod(qPrintable(path(u"AB"_s)), 0600), 0);
    EXPECT_EQ(content(u"AB"_s), "{\"1ab\":1}");
    flush(list);
    EXPECT_THAT(List(path()).allKeys(), UnorderedElementsAre(u"1ab"_s, u"2ab"_s));
}

TEST_F(PersistableListTest, ProcessesThatShareAListLoseNothingOfEachOther)
{
    put(u"AB"_s, "{\"oldab\":0}");
    const auto write = [&](const QString& name) {
        for (int i = 0; i < 100; ++i) {
            List list(path());
            const QString key = name + QString::number(i);
            list.set(i, key + u"ab"_s);
            list.set(i, key + u"cd"_s);
            flush(list);
            EXPECT_EQ(List(path()).value(key + u"cd"_s), i);
            list.removeValue(key + u"cd"_s);
            list.set(i, name + u"latest ab"_s);
            flush(list);
        }
    };
    const pid_t child = fork();
    if (child == 0) {
        write(u"child "_s);
        _exit(HasFailure() ? 1 : 0);
    }
    List early(path());
    EXPECT_EQ(early.value(u"oldab"_s), 0);
    write(u"parent "_s);
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    flush(early); // which read the file before all that
    early.removeValue(u"oldab"_s);
    early.set(1, u"newab"_s);
    flush(early);
    EXPECT_EQ(List(path()).value(u"child 99ab"_s), 99);
    QFile::remove(path(u"CD"_s)); // one may have written anew what the other removed with the file
    EXPECT_EQ(List(path()).allKeys().size(), 203U);
}

TEST_F(PersistableListTest, AFlushWritesAFileThatIsGoneOrDamagedAsAWhole)
{
    for (const bool isGone : {true, false}) {
        put(u"AB"_s, R"({"1ab":1,"2ab":2,"3ab":3})");
        List list(path());
        list.removeValue(u"1ab"_s);
        (void)list.isEmpty(); // returns after the removal
        isGone ? (void)QFile::remove(path(u"AB"_s)) : put(u"AB"_s, "{");
        flush(list);
        EXPECT_THAT(List(path()).allKeys(), UnorderedElementsAre(u"2ab"_s, u"3ab"_s));
    }
}

TEST_F(PersistableListTest, AFlushWaitsForAnotherWriterForALimitedTime)
{
    put(u"AB"_s, "{\"ab\":1}");
    int pipes[2] = {};
    ASSERT_EQ(pipe(pipes), 0);
    const pid_t writer = fork();
    if (writer == 0) {
        const auto lock = FileManager().lockDirectory(path(), {});
        (void)!::write(pipes[1], lock ? "x" : "-", 1);
        pause();
    }
    char signal = 0;
    ASSERT_TRUE(::read(pipes[0], &signal, 1) == 1 && signal == 'x');
    List hasty(path(), std::chrono::milliseconds(20));
    hasty.set(2, u"ab"_s);
    flush(hasty);
    EXPECT_EQ(content(u"AB"_s), "{\"ab\":1}");
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 200; ++i) {
        hasty.removeValue(u"ab"_s);
        hasty.set(2, u"ab"_s);
    }
    EXPECT_EQ(hasty.value(u"ab"_s), 2);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << "200 waits last 4 s";
    List patient(path());
    patient.set(3, u"3ab"_s);
    patient.flush();
    kill(writer, SIGKILL); // which ends its lock
    waitpid(writer, nullptr, 0);
    flush(patient);
    EXPECT_EQ(List(path()).allKeys().size(), 2U);
    flush(hasty);
    EXPECT_EQ(List(path()).value(u"ab"_s), 2);
    close(pipes[0]);
    close(pipes[1]);
}

TEST_F(PersistableListTest, LinksFoldersAndPipesAreNoFilesOfTheList)
{
    put(u"../outside"_s, "{\"li\":1}");
    QDir().mkpath(path(u"DI"_s));
    QFile::link(path(u"../outside"_s), path(u"LI"_s));
    ASSERT_EQ(mkfifo(qPrintable(path(u"PI"_s)), 0600), 0);
    PersistableList<double> list(path());
    EXPECT_TRUE(list.isEmpty());
    for (const auto& key : {u"li"_s, u"di"_s, u"pi"_s}) {
        EXPECT_EQ(list.value(key), std::nullopt);
        list.set(2, key);
    }
    flush(list);
    EXPECT_EQ(content(u"LI"_s), "{\"li\":2}") << "the file stands in the link's place";
    EXPECT_EQ(content(u"../outside"_s), "{\"li\":1}");
    EXPECT_EQ(list.value(u"di"_s), 2) << "what cannot be written stays in memory";
}

TEST_F(PersistableListTest, AFlushReplacesFilesAsAWholeAndRemovesWhatDeadWritersLeft)
{
    put(u"AB"_s, "{\"ab\":1}");
    put(u".quor-dead.new"_s, "{\"ab\"");
    ASSERT_EQ(chmod(qPrintable(path(u"AB"_s)), 0640), 0);
    ASSERT_EQ(link(qPrintable(path(u"AB"_s)), qPrintable(path(u"../before"_s))), 0);
    PersistableList<double> list(path());
    list.set(2, u"ab"_s);
    flush(list);
    EXPECT_EQ(content(u"AB"_s), "{\"ab\":2}");
    EXPECT_EQ(content(u"../before"_s), "{\"ab\":1}") << "a reader that has the old file open reads on in it";
    EXPECT_EQ(QFile::permissions(path(u"AB"_s)) & 0x77, QFile::ReadGroup);
    EXPECT_EQ(files(), QStringList{u"AB"_s});
}

TEST_F(PersistableListTest, ThreadsShareAListAndItsEndWaitsForThem)
{
    {
        PersistableList<double> list(path());
        std::vector<std::jthread> threads;
        threads.reserve(4);
        for (int thread = 0; thread < 4; ++thread)
            threads.emplace_back([&list, thread] {
                for (int i = 0; i < 200; ++i) {
                    const QString key = u"%1-%2"_s.arg(thread).arg(i);
                    list.set(i, key);
                    EXPECT_EQ(list.value(key), i);
                    if (i % 2)
                        list.removeValue(key);
                    if (i % 50 == thread || i == 199)
                        list.flush();
                }
            });
    } // waits for the threads, then for the flush
    EXPECT_EQ(PersistableList<double>(path()).allKeys().size(), 400U);
}

} // namespace
