// SPDX-License-Identifier: MIT
#include "Support/Files.h"
#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"
#include "Platform/Files/TemporaryFile.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <atomic>
#include <csignal>
#include <thread>

#include <sys/resource.h>
#include <sys/wait.h>

using namespace quor::platform;
using quor::test::readFile;
using quor::test::writeFile;
using testing::UnorderedElementsAre;

namespace {

class FilesTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray path(const char* name) const
    {
        return QFile::encodeName(top_.path()) + '/' + name;
    }
    void make(const char* name, const QByteArray& content, mode_t mode = 0644) const
    {
        ASSERT_TRUE(writeFile(top_.filePath(QString::fromUtf8(name)), content));
        ASSERT_EQ(chmod(path(name).constData(), mode), 0);
    }
    [[nodiscard]] QByteArray content(const char* name) const
    {
        return readFile(top_.filePath(QString::fromUtf8(name)));
    }
    [[nodiscard]] mode_t permissions(const char* name) const
    {
        struct stat status { };
        return lstat(path(name).constData(), &status) == 0 ? status.st_mode & 0777 : 0;
    }
    [[nodiscard]] std::vector<QByteArray> files(Names names = Names::visible) const
    {
        return entryNames(folder_.get(), S_IFREG, names);
    }

    const QTemporaryDir top_;
    const FileDescriptor folder_ = openFolder(QFile::encodeName(top_.path()));
};

TEST_F(FilesTest, ReadsRegularFilesUpToALimit)
{
    make("four", "four");
    make("endless", "");
    ASSERT_EQ(truncate(path("endless").constData(), off_t(1) << 40), 0); // sparse
    ASSERT_EQ(symlink("four", path("link").constData()), 0);
    ASSERT_EQ(mkfifo(path("pipe").constData(), 0600), 0);
    ASSERT_FALSE(makeFolder(path("new/folder"), 0700));
    const std::tuple<const char*, qint64, SymbolicLinks, std::optional<QByteArray>> cases[]
        = {{"four", 4, SymbolicLinks::refuse, "four"}, {"four", 3, SymbolicLinks::refuse, {}},
            {"link", 4, SymbolicLinks::follow, "four"}, {"link", 4, SymbolicLinks::refuse, {}},
            {"endless", 1 << 20, SymbolicLinks::follow, {}}, {"pipe", 4, SymbolicLinks::follow, {}},
            {"new", 4, SymbolicLinks::follow, {}}, {"none", 4, SymbolicLinks::follow, {}}};
    for (const auto& [name, limit, links, expected] : cases)
        EXPECT_EQ(quor::platform::readFile(name, limit, links, folder_.get()), expected) << name;
    EXPECT_THAT(files(), UnorderedElementsAre("four", "endless"));
    EXPECT_THAT(entryNames(folder_.get(), S_IFDIR), UnorderedElementsAre("new"));
    EXPECT_EQ(permissions("new/folder"), 0700U);
    EXPECT_EQ(makeFolder(path("four/below"), 0700), std::errc::not_a_directory);
}

TEST_F(FilesTest, ReplacesATargetInEachWay)
{
    const std::tuple<const char*, TargetFile, std::error_code, QByteArray> cases[]
        = {{"file", TargetFile::replace, {}, "new"}, {"link", TargetFile::replace, {}, "new"},
            {"none", TargetFile::replace, {}, "new"}, {"none", TargetFile::mustNotExist, {}, "new"},
            {"file", TargetFile::mustNotExist, std::make_error_code(std::errc::file_exists), "old"},
            {"link", TargetFile::mustNotExist, std::make_error_code(std::errc::file_exists), "outside"},
            {"file", TargetFile::exchange, {}, "new"},
            {"none/below", TargetFile::replace, std::make_error_code(std::errc::no_such_file_or_directory),
                "none"}};
    for (const auto& [target, existing, error, expected] : cases) {
        for (const char* name : {"file", "link", "none"})
            unlink(path(name).constData());
        make("file", "old");
        make("outside", "outside");
        ASSERT_EQ(symlink("outside", path("link").constData()), 0);
        {
            TemporaryFile file(target, 0600, folder_.get());
            file.write("ne");
            file.write("w");
            file.sync();
            EXPECT_EQ(file.commit(existing), error) << target;
            if (existing == TargetFile::exchange) {
                EXPECT_EQ(QFile(QFile::decodeName(path(file.path()))).size(), 3);
                EXPECT_FALSE(file.commit(TargetFile::exchange));
                EXPECT_EQ(content("file"), "old");
                EXPECT_FALSE(file.commit(TargetFile::exchange));
            }
        }
        EXPECT_EQ(content(target), expected) << target;
        EXPECT_EQ(content("outside"), "outside");
        EXPECT_EQ(files(Names::hidden), std::vector<QByteArray>());
    }
}

TEST_F(FilesTest, GivesTheFileThePermissionsThatAreAskedFor)
{
    make("file", "old", 0640);
    EXPECT_FALSE(replaceFile(path("file"), "1", 0600, Permissions::ofTarget));
    EXPECT_EQ(permissions("file"), 0640U);
    EXPECT_FALSE(replaceFile(path("file"), "2", 0600, Permissions::fixed));
    EXPECT_EQ(permissions("file"), 0600U);
    EXPECT_FALSE(replaceFile(path("new"), "3", 0600, Permissions::ofTarget));
    EXPECT_EQ(permissions("new"), 0600U);
}

TEST_F(FilesTest, AFileSizeLimitFailsTheWriteAndNotTheProcess)
{
    make("file", "old");
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1000, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    TemporaryFile file(path("file"), 0600);
    file.write(QByteArray(600, 'n'));
    EXPECT_FALSE(file.error());
    file.write(QByteArray(600, 'n'));
    const auto error = file.commit();
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_EQ(content("file"), "old");
}

TEST_F(FilesTest, OnlyFilesOfDeadWritersAreLeftovers)
{
    for (const char* name : {".quor-1.newer", "quor-1.new", ".new"})
        make(name, "another's");
    ASSERT_EQ(symlink("quor-1.new", path(".quor-2.new").constData()), 0);
    int pipes[2] = {};
    ASSERT_EQ(pipe(pipes), 0);
    const pid_t writer = fork();
    if (writer == 0) {
        TemporaryFile file(path("file"), 0600);
        file.write("half");
        (void)!write(pipes[1], "x", 1);
        pause();
    }
    char signal = 0;
    ASSERT_EQ(read(pipes[0], &signal, 1), 1);
    removeLeftovers(folder_.get());
    EXPECT_EQ(files(Names::hidden).size(), 3U) << "the writer is still alive";
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    removeLeftovers(folder_.get());
    EXPECT_THAT(files(Names::hidden), UnorderedElementsAre(".quor-1.newer", ".new"));
    EXPECT_EQ(files(), std::vector<QByteArray>{"quor-1.new"});
    close(pipes[0]);
    close(pipes[1]);
}

TEST_F(FilesTest, CleanersTakeNothingFromWritersAtAnyMoment)
{
    std::atomic<bool> isDone = false;
    std::thread cleaner([&] {
        while (!isDone)
            removeLeftovers(folder_.get());
    });
    for (int i = 0; i < 1000; ++i) // new files, since many file systems sync one that replaces another
        EXPECT_FALSE(replaceFile(QByteArray::number(i), "x", 0600, Permissions::fixed, folder_.get()));
    isDone = true;
    cleaner.join();
    EXPECT_EQ(files().size(), 1000U);
    EXPECT_EQ(files(Names::hidden), std::vector<QByteArray>());
}

} // namespace
