// SPDX-License-Identifier: MIT
#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"
#include "Platform/Files/Trash.h"
#include "Platform/Linux/Applications/DesktopApplicationInstaller.h"
#include "Support/TemporaryDataHome.h"
#include "Support/TinyDisk.h"
#include "Support/WaitFor.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::mountTinyDisk;
using quor::test::TemporaryDataHome;
using quor::test::waitFor;

namespace {

using Kind = InstallResult::Kind;

bool isThere(const QByteArray& path)
{
    struct stat status { };
    return ::lstat(path.constData(), &status) == 0;
}

void write(const QByteArray& path, const QByteArray& bytes, mode_t mode = 0644)
{
    ASSERT_FALSE(makeFolder(path.left(path.lastIndexOf('/')), 0755));
    const FileDescriptor file(::open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, mode));
    ASSERT_FALSE(writeWhole(file.get(), bytes));
}

QByteArray read(const QByteArray& path)
{
    return readFile(path, 1 << 20).value_or("none");
}

class ApplicationInstallerTest : public testing::Test {
protected:
    ApplicationInstallerTest()
    {
        write(bundle + "/bin/program", "#!/bin/sh\necho ran >\"$(dirname \"$0\")/../trace\"\n", 0755);
        write(bundle + "/data/\xff\n", "bytes");
        write(bundle + "/data/secret", "secret", 0600);
        EXPECT_EQ(::symlink("../bin/program", (bundle + "/data/link").constData()), 0);
        EXPECT_EQ(::setxattr((bundle + "/data/secret").constData(), "user.quor", "kept", 4, 0), 0);
        EXPECT_EQ(::setxattr((bundle + "/data/secret").constData(), "user.xdg.origin.url", "x", 1, 0), 0);
    }
    ~ApplicationInstallerTest() override
    {
        qputenv("PATH", path);
        std::filesystem::remove_all(home.toStdString()); // Qt cannot name all files in it
        std::filesystem::remove_all(trash.toStdString());
    }

    /// Puts a `pkexec` first into the path, which does what the lines say.
    void takePkexec(const QByteArray& lines)
    {
        write(home + "/fake/pkexec", "#!/bin/sh\n" + lines + '\n', 0755);
        qputenv("PATH", home + "/fake:" + path);
    }
    void expectCopy() const
    {
        EXPECT_EQ(read(target + "/data/\xff\n"), "bytes");
        struct stat status { };
        ASSERT_EQ(::lstat((target + "/data/secret").constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0600U);
        ASSERT_EQ(::lstat((target + "/data/link").constData(), &status), 0);
        EXPECT_TRUE(S_ISLNK(status.st_mode));
        char mark[8]{};
        EXPECT_EQ(::getxattr((target + "/data/secret").constData(), "user.quor", mark, sizeof mark), 4);
        const std::filesystem::directory_iterator entries(folder.toStdString());
        EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "a leftover";
    }

    TemporaryDataHome dataHome;
    QByteArray path = qgetenv("PATH");
    QByteArray home = QFile::encodeName(dataHome.path(u"files"_s));
    QByteArray bundle = home + "/it's a \"bundle\" $HOME\n\xfe.app";
    QByteArray folder = home + "/Apps -x";
    QByteArray target = folder + bundle.mid(bundle.lastIndexOf('/'));
    QByteArray trash = QFile::encodeName(dataHome.path(u"Trash"_s));
    DesktopApplicationInstaller installer;
};

} // namespace

TEST_F(ApplicationInstallerTest, CopiesABundleAndTrashesWhatItReplaces)
{
    EXPECT_EQ(installer.install(bundle, target).kind, Kind::installed);
    expectCopy();
    write(target + "/old", "old");
    EXPECT_EQ(installer.install(bundle, target).kind, Kind::installed);
    EXPECT_FALSE(isThere(target + "/old"));
    const QByteArray name = target.mid(folder.size() + 1);
    EXPECT_EQ(read(trash + "/files/" + name + "/old"), "old");
    const auto info = read(trash + "/info/" + name + ".trashinfo").split('\n');
    EXPECT_EQ(info.value(0), "[Trash Info]");
    EXPECT_EQ(info.value(1), "Path=" + home + "/Apps%20-x/it%27s%20a%20%22bundle%22%20%24HOME%0A%FE.app");
    EXPECT_TRUE(info.value(2).startsWith("DeletionDate=2"));

    installer.removeDownloadMarks(target);
    char mark[8];
    EXPECT_LT(::getxattr((target + "/data/secret").constData(), "user.xdg.origin.url", mark, sizeof mark), 0);
    expectCopy();

    const auto missing = installer.install(bundle + "x", target);
    EXPECT_EQ(missing.kind, Kind::failed);
    EXPECT_FALSE(missing.reason.isEmpty());
    write(home + "/file", "");
    EXPECT_EQ(installer.install(bundle, home + "/file/x.app").kind, Kind::failed);
    expectCopy();
    EXPECT_EQ(::chmod((bundle + "/data").constData(), 0555), 0);
    installer.remove(bundle);
    EXPECT_FALSE(isThere(bundle));
}

TEST_F(ApplicationInstallerTest, AsksForTheRightsOfAnAdministrator)
{
    ASSERT_FALSE(makeFolder(folder, 0755));
    write(target + "/old", "old");
    const std::tuple<QByteArray, Kind, QString> refusals[] = {
        {"exit 126", Kind::cancelled, {}},
        {"echo not allowed >&2; exit 127", Kind::failed, u"not allowed"_s},
        {"head -c 200000 /dev/zero >&2; kill -9 $$", Kind::failed, {}},
    };
    for (const auto& [lines, kind, reason] : refusals) {
        takePkexec(lines);
        const auto result = installer.installAsAdministrator(bundle, target);
        EXPECT_EQ(result.kind, kind) << lines.constData();
        EXPECT_TRUE(reason.isEmpty() || result.reason == reason) << lines.constData();
        EXPECT_EQ(read(target + "/old"), "old") << lines.constData();
    }
    takePkexec("exec \"$@\"");
    EXPECT_EQ(installer.installAsAdministrator(home + "/gone.app", target).kind, Kind::failed);
    EXPECT_EQ(read(target + "/old"), "old");
    EXPECT_EQ(installer.installAsAdministrator(bundle, target).kind, Kind::installed);
    EXPECT_FALSE(isThere(target + "/old"));
    expectCopy();
    qputenv("PATH", home);
    EXPECT_EQ(installer.installAsAdministrator(bundle, target).kind, Kind::failed) << "there is no pkexec";
}

TEST_F(ApplicationInstallerTest, EndsAndStartsTheProgramsOfABundle)
{
    using Ending = ApplicationInstaller::Ending;
    const ApplicationBundle application{bundle, "bin/sleep"};
    EXPECT_EQ(installer.endPrograms(application), Ending::notRunning);
    QFile::copy(u"/bin/sleep"_s, dataHome.path(u"sleep"_s));
    ASSERT_EQ(::rename(qPrintable(dataHome.path(u"sleep"_s)), (bundle + "/bin/sleep").constData()), 0);
    const pid_t child = ::fork();
    if (child == 0)
        ::execl((bundle + "/bin/sleep").constData(), "sleep", "1000", nullptr);
    QProcess image; // runs from elsewhere
    auto environment = QProcessEnvironment::systemEnvironment();
    const QByteArray imagePath = home + "/Tool.AppImage";
    environment.insert(u"APPIMAGE"_s, QString::fromUtf8(imagePath));
    image.setProcessEnvironment(environment);
    image.start(u"sleep"_s, {u"1000"_s});
    ASSERT_TRUE(image.waitForStarted());
    EXPECT_TRUE(waitFor([&] { return installer.endPrograms(application) == Ending::ended; }));
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(image.state(), QProcess::Running);
    EXPECT_EQ(installer.endPrograms({imagePath, {}}), Ending::ended);
    EXPECT_TRUE(image.waitForFinished());

    const ApplicationBundle traced{bundle, "bin/program"};
    EXPECT_FALSE(installer.open(traced, ApplicationInstaller::Start::now));
    EXPECT_TRUE(waitFor([&] { return read(bundle + "/trace") == "ran\n"; }));
    EXPECT_TRUE(installer.open({bundle, "bin/missing"}, ApplicationInstaller::Start::now));

    installer.remove(bundle + "/trace");
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe2(ready.data(), O_CLOEXEC), 0);
    const pid_t starter = ::fork();
    if (starter == 0) {
        const bool isOpen = !installer.open(traced, ApplicationInstaller::Start::afterThisProcess);
        (void)::write(ready[1], isOpen ? "y" : "n", 1);
        ::pause();
    }
    char isOpen = 0;
    ASSERT_EQ(::read(ready[0], &isOpen, 1), 1);
    EXPECT_EQ(isOpen, 'y');
    EXPECT_FALSE(isThere(bundle + "/trace")) << "the process still runs";
    ::kill(starter, SIGKILL);
    ::waitpid(starter, &status, 0);
    EXPECT_TRUE(waitFor([&] { return read(bundle + "/trace") == "ran\n"; }));
}

TEST_F(ApplicationInstallerTest, UsesTheTrashOfAnotherFileSystemAndBearsAFullOne)
{
    const QByteArray disk = home + "/disk";
    ASSERT_FALSE(makeFolder(disk, 0755));
    const pid_t child = ::fork();
    if (child == 0) {
        if (!mountTinyDisk(QFile::decodeName(disk), "size=64k"))
            ::_exit(77);
        write(disk + "/a b/old", "old");
        TrashedItem item;
        const auto user = Trash::ofUser();
        const bool isTrashed = !user->put(disk + "/a b", item);
        const QByteArray top = disk + "/.Trash-" + QByteArray::number(::getuid());
        const bool isRight = item.path == top + "/files/a b" && read(item.path + "/old") == "old"
            && read(item.infoPath).contains("\nPath=a%20b\n");
        const bool isBack = !Trash::restore(item, disk + "/a b") && read(disk + "/a b/old") == "old";
        write(bundle + "/big", QByteArray(100'000, 'x'));
        const bool isFull = installer.install(bundle, disk + "/a b").kind == Kind::failed
            && read(disk + "/a b/old") == "old";
        ::_exit(isTrashed && isRight && isBack && isFull ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WEXITSTATUS(status) == 77)
        GTEST_SKIP() << "no namespaces here";
    EXPECT_EQ(status, 0);
}
