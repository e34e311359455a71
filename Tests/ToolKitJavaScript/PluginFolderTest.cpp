// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/PluginFolder.h"
#include "Support/Files.h"
#include "Support/TinyDisk.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace quor::test;
using namespace Qt::StringLiterals;
using quor::toolkit::PluginFolder;

class PluginFolderTest : public testing::TestWithParam<PluginFolder::Resolution> {
protected:
    PluginFolderTest()
    {
        writeFile(path(u"secret"_s), "secret");
        writeFile(path(u"plugin/sub/file"_s), "inside");
    }
    QString path(const QString& below) const { return top.filePath(below); }
    void link(const QString& target, const QString& below) const
    {
        ASSERT_EQ(symlink(QFile::encodeName(target), QFile::encodeName(path(below))), 0);
    }

    QTemporaryDir top;
    PluginFolder folder{QUrl::fromLocalFile(top.filePath(u"plugin"_s)), GetParam()};
};

TEST_P(PluginFolderTest, RefusesPathsThatLeadOutside)
{
    link(u"../secret"_s, u"plugin/link"_s);
    link(path(u""_s), u"plugin/out"_s);
    link(u"missing"_s, u"plugin/dangling"_s);
    writeFile(path(u"plugin/a..b"_s), "dots");
    writeFile(path(u"plugin/?"_s), "a question");
    for (const QString& refused :
        {u"../secret"_s, u"a..b"_s, u"sub/../../secret"_s, u"link"_s, u"out/secret"_s, u"out"_s,
            u"dangling"_s, path(u"secret"_s), u"sub/file\0x"_s, u"sub/file/x"_s, QString(QChar(0xd800))}) {
        EXPECT_FALSE(folder.exists(refused)) << refused.toStdString();
        EXPECT_FALSE(folder.contents(refused)) << refused.toStdString();
    }
    for (const QString& refused :
        {u"out/secret"_s, u"out/new"_s, u"../secret"_s, u"none/new"_s, u"sub"_s, u""_s}) {
        EXPECT_FALSE(folder.write("x", refused)) << refused.toStdString();
        folder.remove(refused);
    }
    EXPECT_EQ(readFile(path(u"secret"_s)), "secret");
    EXPECT_TRUE(folder.exists(u"sub"_s) && folder.exists(u""_s));
    for (const QString& same : {u"sub/file"_s, u"/sub/./file/"_s, u"//sub//file"_s})
        EXPECT_EQ(folder.contents(same), "inside") << same.toStdString();

    // Writing and removing affect a link, not its target.
    EXPECT_TRUE(folder.write("own", u"link"_s));
    EXPECT_EQ(folder.contents(u"link"_s), "own");
    folder.remove(u"out"_s);
    folder.remove(u"sub/file"_s);
    EXPECT_EQ(QDir(path(u"plugin/sub"_s)).entryList(QDir::Files | QDir::Hidden), QStringList());
    EXPECT_EQ(readFile(path(u"secret"_s)), "secret");
    EXPECT_FALSE(QFileInfo(path(u"plugin/out"_s)).isSymLink());
}

TEST_P(PluginFolderTest, KeepsPermissionsRemovesLeftoversAndReadsNoPipes)
{
    const QString file = path(u"plugin/sub/file"_s);
    ASSERT_EQ(chmod(QFile::encodeName(file), 0600), 0);
    ASSERT_TRUE(writeFile(path(u"plugin/sub/.quor-1.new"_s), "of a killed writer"));
    EXPECT_TRUE(folder.write("new", u"sub/file"_s));
    EXPECT_EQ(QFile::permissions(file) & 0x77, QFile::Permissions());
    EXPECT_EQ(QDir(path(u"plugin/sub"_s)).entryList(QDir::Files | QDir::Hidden), QStringList{u"file"_s});
    ASSERT_EQ(mkfifo(QFile::encodeName(path(u"plugin/pipe"_s)), 0600), 0);
    EXPECT_FALSE(folder.contents(u"pipe"_s));
}

TEST_P(PluginFolderTest, KeepsTheOldContentOnAFullDisk)
{
    constexpr int cannotMount = 77;
    const pid_t child = fork();
    if (child == 0) {
        if (!mountTinyDisk(path(u"plugin/sub"_s)))
            _exit(cannotMount);
        const bool old = folder.write("old", u"sub/file"_s);
        const bool isWritten = folder.write(QByteArray(1 << 20, 'x'), u"sub/file"_s);
        const auto files = QDir(path(u"plugin/sub"_s)).entryList(QDir::Files | QDir::Hidden);
        _exit(old && !isWritten && folder.contents(u"sub/file"_s) == "old" && files.size() == 1 ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    if (WEXITSTATUS(status) == cannotMount)
        GTEST_SKIP() << "this system does not allow users to mount";
    EXPECT_EQ(status, 0);
}

TEST_P(PluginFolderTest, FollowsNoLinkThatIsPutInPlaceOfAFolder)
{
    writeFile(path(u"out/file"_s), "outside");
    std::atomic<bool> done = false;
    std::thread swapper([&] {
        const QByteArray here = QFile::encodeName(path(u"plugin/sub"_s));
        const QByteArray away = QFile::encodeName(path(u"plugin/away"_s));
        while (!done) {
            rename(here, away);
            (void)symlink("../out", here);
            unlink(here);
            rename(away, here);
        }
    });
    for (int i = 0; i < 2000; ++i) {
        EXPECT_NE(folder.contents(u"sub/file"_s).value_or("inside"), "outside");
        (void)folder.write("inside", u"sub/file"_s);
        (void)folder.write("inside", u"sub/new"_s);
        folder.remove(u"sub/new"_s);
    }
    done = true;
    swapper.join();
    EXPECT_EQ(readFile(path(u"out/file"_s)), "outside");
    EXPECT_EQ(QDir(path(u"out"_s)).entryList(QDir::Files | QDir::Hidden), QStringList{u"file"_s});
}

INSTANTIATE_TEST_SUITE_P(Both, PluginFolderTest,
    testing::Values(PluginFolder::Resolution::byKernel, PluginFolder::Resolution::byWalk));

} // namespace
