// SPDX-License-Identifier: MIT
#include "Platform/Files/Trash.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/FileDescriptor.h"
#include "Platform/Files/Folder.h"
#include "Platform/Preferences/DataHome.h"

#include <QDateTime>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace quor::platform {

namespace {

constexpr mode_t privateFolder = 0700;
constexpr mode_t privateFile = 0600;

/// A folder `files` and a folder `info`, and what the paths in the latter are relative to.
struct TrashFolder {
    QByteArray path;
    QByteArray top; ///< empty for the trash in the home folder, whose paths are absolute
};

QByteArray folderOf(const QByteArray& path)
{
    const auto slash = path.lastIndexOf('/');
    return slash > 0 ? path.left(slash) : QByteArray("/");
}

std::optional<dev_t> deviceOf(const QByteArray& path)
{
    struct stat status { };
    return ::lstat(path.constData(), &status) == 0 ? std::optional(status.st_dev) : std::nullopt;
}

/// The uppermost folder of the file system that a folder is on.
QByteArray topOf(QByteArray folder, dev_t device)
{
    while (folder != "/") {
        const QByteArray above = folderOf(folder);
        if (deviceOf(above) != device)
            break;
        folder = above;
    }
    return folder;
}

/// A trash that all users share must be a real folder from which nobody can delete what is another's.
bool isSharedTrash(const QByteArray& path)
{
    struct stat status { };
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX);
}

TrashFolder trashAt(const QByteArray& top)
{
    const QByteArray user = QByteArray::number(::getuid());
    const QByteArray root = top == "/" ? QByteArray() : top;
    const QByteArray shared = root + "/.Trash";
    return {isSharedTrash(shared) ? shared + '/' + user : root + "/.Trash-" + user, top};
}

/// A trash of another file system must belong to the user, or others could read what is put there.
std::error_code makeTrash(const TrashFolder& trash)
{
    for (const char* const name : {"/files", "/info"}) {
        if (const auto error = makeFolder(trash.path + name, privateFolder))
            return error;
    }
    struct stat status { };
    if (::lstat(trash.path.constData(), &status) != 0)
        return lastSystemError();
    const bool isSafe = S_ISDIR(status.st_mode) && status.st_uid == ::getuid();
    return trash.top.isEmpty() || isSafe ? std::error_code()
                                         : std::make_error_code(std::errc::permission_denied);
}

QByteArray infoText(const TrashFolder& trash, const QByteArray& path)
{
    const auto skipped = trash.top.isEmpty() ? 0 : trash.top == "/" ? 1 : trash.top.size() + 1;
    return "[Trash Info]\nPath=" + path.mid(skipped).toPercentEncoding("/")
        + "\nDeletionDate=" + QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
}

/// Reserves a name that no other item of the trash has.
std::error_code reserve(const TrashFolder& trash, const QByteArray& path, TrashedItem& item)
{
    const QByteArray base = path.mid(path.lastIndexOf('/') + 1);
    for (int number = 1;; ++number) {
        const QByteArray name = number == 1 ? base : base + '.' + QByteArray::number(number);
        item = {trash.path + "/files/" + name, trash.path + "/info/" + name + ".trashinfo"};
        const FileDescriptor info(::open(
            item.infoPath.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, privateFile));
        if (!info && errno == EEXIST)
            continue;
        if (!info)
            return lastSystemError();
        if (deviceOf(item.path)) { // an item whose information was lost
            ::unlink(item.infoPath.constData());
            continue;
        }
        const auto error = writeWhole(info.get(), infoText(trash, path));
        if (error)
            ::unlink(item.infoPath.constData());
        return error;
    }
}

std::error_code renameToFreeName(const QByteArray& from, const QByteArray& to)
{
    const bool isRenamed
        = ::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0;
    return isRenamed ? std::error_code() : lastSystemError();
}

} // namespace

std::optional<Trash> Trash::ofUser()
{
    const auto folder = dataHome();
    return folder ? std::optional(Trash(*folder + "/Trash")) : std::nullopt;
}

std::error_code Trash::put(const QByteArray& path, TrashedItem& item) const
{
    const auto device = deviceOf(path);
    if (!device)
        return lastSystemError();
    if (const auto error = makeFolder(homeTrash_, privateFolder))
        return error;
    const QByteArray folder = folderOf(path);
    const TrashFolder trash = deviceOf(homeTrash_) == deviceOf(folder)
        ? TrashFolder{homeTrash_, {}}
        : trashAt(topOf(folder, *deviceOf(folder)));
    if (const auto error = makeTrash(trash))
        return error;
    if (const auto error = reserve(trash, path, item))
        return error;
    const auto error = renameToFreeName(path, item.path);
    if (error)
        ::unlink(item.infoPath.constData());
    return error;
}

std::error_code Trash::restore(const TrashedItem& item, const QByteArray& path)
{
    if (const auto error = renameToFreeName(item.path, path))
        return error;
    ::unlink(item.infoPath.constData());
    return {};
}

} // namespace quor::platform
