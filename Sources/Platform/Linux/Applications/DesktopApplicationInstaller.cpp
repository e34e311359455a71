// SPDX-License-Identifier: MIT
#include "Platform/Linux/Applications/DesktopApplicationInstaller.h"

#include "Platform/Files/Folder.h"
#include "Platform/Files/Trash.h"
#include "Platform/Linux/Applications/ChildProcess.h"
#include "Platform/Linux/Applications/RunningPrograms.h"

#include <QUuid>

#include <array>
#include <climits>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace quor::platform {

namespace {

constexpr mode_t folderMode = 0755;

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/'));
}

QByteArray nameOf(const QByteArray& path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

bool isThere(const QByteArray& path)
{
    struct stat status { };
    return ::lstat(path.constData(), &status) == 0;
}

std::filesystem::path nativePath(const QByteArray& path)
{
    return {path.toStdString()};
}

QByteArray pathOfThisProgram()
{
    std::array<char, PATH_MAX> path{};
    const auto length = ::readlink("/proc/self/exe", path.data(), path.size());
    return {path.data(), length > 0 ? length : 0};
}

InstallResult failed(const QByteArray& reason)
{
    return {InstallResult::Kind::failed, QString::fromLocal8Bit(reason).trimmed()};
}

InstallResult failed(const std::error_code& error)
{
    return failed(QByteArray::fromStdString(error.message()));
}

/// A name beside the target that nothing has yet.
QByteArray temporaryName()
{
    return ".quor-" + QUuid::createUuid().toByteArray(QUuid::Id128) + ".new";
}

/// Gives the complete copy the name of the target, which goes into the trash.
std::error_code replace(const QByteArray& copy, const QByteArray& target)
{
    TrashedItem old;
    const bool isReplaced = isThere(target);
    if (isReplaced) {
        const auto trash = Trash::ofUser();
        if (!trash)
            return std::make_error_code(std::errc::no_such_file_or_directory);
        if (const auto error = trash->put(target, old))
            return error;
    }
    if (::renameat2(AT_FDCWD, copy.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0)
        return {};
    const auto error = lastSystemError();
    if (isReplaced)
        (void)Trash::restore(old, target);
    return error;
}

void removeMarks(const char* path)
{
    for (const char* const mark : {"user.xdg.origin.url", "user.xdg.referrer.url"})
        ::lremovexattr(path, mark);
}

// The arguments are folder and name of the target, the bundle, and a temporary name. The old target stays
// until the copy is complete.
constexpr auto installScript = R"(set -e
cd -- "$1"
trap 'rm -rf -- "./$4" "./$4.old"' EXIT
cp -a -T -- "$3" "./$4"
if [ -e "./$2" ] || [ -L "./$2" ]; then mv -T -- "./$2" "./$4.old"; fi
mv -T -- "./$4" "./$2" || { mv -T -- "./$4.old" "./$2"; exit 1; }
)";

} // namespace

std::optional<ApplicationBundle> DesktopApplicationInstaller::runningBundle() const
{
    const QByteArray image = qgetenv("APPIMAGE");
    if (image.startsWith('/') && image.endsWith(".AppImage") && isThere(image))
        return ApplicationBundle{image, {}};
    const QByteArray program = pathOfThisProgram();
    for (QByteArray folder = folderOf(program); !folder.isEmpty(); folder = folderOf(folder)) {
        if (folder.endsWith(".app") && !folder.endsWith("/.app"))
            return ApplicationBundle{folder, program.mid(folder.size() + 1)};
    }
    return std::nullopt;
}

std::vector<QByteArray> DesktopApplicationInstaller::applicationFolders() const
{
    std::vector<QByteArray> folders{"/opt"};
    if (const QByteArray home = qgetenv("HOME"); home.startsWith('/'))
        folders.push_back(home + "/Applications");
    return folders;
}

ApplicationInstaller::Ending DesktopApplicationInstaller::endPrograms(const ApplicationBundle& bundle)
{
    const RunningPrograms programs(bundle);
    if (programs.isEmpty())
        return Ending::notRunning;
    return programs.end() ? Ending::ended : Ending::refused;
}

InstallResult DesktopApplicationInstaller::install(const QByteArray& bundlePath, const QByteArray& target)
{
    const QByteArray folder = folderOf(target);
    if (const auto error = makeFolder(folder, folderMode))
        return failed(error);
    const QByteArray copy = folder + '/' + temporaryName();
    const ProgramEnd copying = runProgram({"cp", "-a", "-T", "--", bundlePath, copy});
    if (copying.exitStatus != 0) {
        remove(copy);
        return failed(copying.errorText);
    }
    if (const auto error = replace(copy, target)) {
        remove(copy);
        return failed(error);
    }
    return {};
}

InstallResult DesktopApplicationInstaller::installAsAdministrator(
    const QByteArray& bundlePath, const QByteArray& target)
{
    constexpr int dismissed = 126; // what pkexec returns if the user closes its question
    const ProgramEnd installing = runProgram({"pkexec", "/bin/sh", "-c", installScript, "sh",
        folderOf(target), nameOf(target), bundlePath, temporaryName()});
    if (installing.exitStatus == dismissed)
        return {InstallResult::Kind::cancelled, {}};
    return installing.exitStatus == 0 ? InstallResult{} : failed(installing.errorText);
}

void DesktopApplicationInstaller::removeDownloadMarks(const QByteArray& path)
{
    removeMarks(path.constData());
    std::error_code error;
    for (std::filesystem::recursive_directory_iterator entry(nativePath(path), error), end; entry != end;
         entry.increment(error))
        removeMarks(entry->path().c_str());
}

std::error_code DesktopApplicationInstaller::open(const ApplicationBundle& bundle, Start start)
{
    if (::access(bundle.programPath().constData(), X_OK) != 0)
        return lastSystemError();
    if (start == Start::now) {
        // By a shell that ends at once, so that this process need not wait for the program's end.
        (void)runProgram(
            {"/bin/sh", "-c", "\"$1\" </dev/null >/dev/null 2>&1 &", "sh", bundle.programPath()});
        return {};
    }
    Pipe life = Pipe::make();
    if (!life.reading)
        return lastSystemError();
    pid_t process = 0;
    // The shell reads the end of the pipe when this process has ended, however it ends.
    const auto error
        = startProgram({"/bin/sh", "-c", "read -r line; exec \"$1\" </dev/null", "sh", bundle.programPath()},
            {life.reading.get(), -1, -1}, process);
    if (!error)
        (void)life.writing.release();
    return error;
}

void DesktopApplicationInstaller::remove(const QByteArray& path)
{
    using std::filesystem::perms;
    std::error_code error;
    std::filesystem::remove_all(nativePath(path), error);
    if (!error)
        return;
    // Folders that cannot be written cannot be emptied.
    for (std::filesystem::recursive_directory_iterator entry(nativePath(path), error), end; entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        if (entry->symlink_status(ignored).type() == std::filesystem::file_type::directory)
            std::filesystem::permissions(
                entry->path(), perms::owner_all, std::filesystem::perm_options::add, ignored);
    }
    std::filesystem::remove_all(nativePath(path), error);
}

} // namespace quor::platform
