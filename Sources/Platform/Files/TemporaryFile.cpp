// SPDX-License-Identifier: MIT
#include "Platform/Files/TemporaryFile.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"

#include <QRandomGenerator>

#include <cstdio>

#include <sys/file.h>
#include <sys/stat.h>

namespace quor::platform {

namespace {

constexpr QByteArrayView prefix = ".quor-";
constexpr QByteArrayView suffix = ".new";

QByteArray temporaryPathFor(const QByteArray& target)
{
    QByteArray path = target.first(target.lastIndexOf('/') + 1);
    path += prefix;
    path += QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    path += suffix;
    return path;
}

} // namespace

TemporaryFile::TemporaryFile(const QByteArray& target, mode_t mode, int folder, WriteGuard guard)
    : target_(target)
    , folder_(folder)
    , guard_(guard)
{
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    constexpr int mostAttempts = 64;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        QByteArray path = temporaryPathFor(target);
        file_ = FileDescriptor(openat(folder, path.constData(), flags, mode));
        check(bool(file_));
        if (!file_)
            return;
        path_ = std::move(path);
        if (guard == WriteGuard::folderLock || lock())
            return;
    }
}

TemporaryFile::~TemporaryFile()
{
    if (!path_.isEmpty())
        unlinkat(folder_, path_.constData(), 0);
}

// Between its creation and the lock the file looks like a leftover. If another process has just removed it,
// another file is needed. Once locked it is safe, until the descriptor is closed.
bool TemporaryFile::lock()
{
    while (flock(file_.get(), LOCK_EX) != 0 && errno == EINTR) { }
    struct stat status { };
    return fstat(file_.get(), &status) != 0 || status.st_nlink > 0;
}

// Some file systems report only at a close that the disk is full. A file with a lock of its own stays open,
// as long as it has the temporary name, and a copy of the descriptor is closed.
bool TemporaryFile::close()
{
    const int descriptor
        = guard_ == WriteGuard::ownLock ? fcntl(file_.get(), F_DUPFD_CLOEXEC, 0) : file_.release();
    return descriptor < 0 ? guard_ == WriteGuard::folderLock : ::close(descriptor) == 0;
}

void TemporaryFile::check(bool succeeded)
{
    if (!error_ && !succeeded)
        error_ = lastSystemError();
}

void TemporaryFile::write(QByteArrayView bytes)
{
    if (!error_)
        error_ = writeWhole(file_.get(), bytes);
}

void TemporaryFile::copyPermissionsOfTarget()
{
    constexpr mode_t permissions = 0777;
    struct stat status { };
    if (!error_ && fstatat(folder_, target_.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0
        && S_ISREG(status.st_mode))
        check(fchmod(file_.get(), status.st_mode & permissions) == 0);
}

void TemporaryFile::sync()
{
    if (!error_)
        check(fdatasync(file_.get()) == 0 || errno == EINVAL); // which the file system does not know
}

std::error_code TemporaryFile::commit(TargetFile existing)
{
    if (error_)
        return error_;
    check(close());
    if (error_)
        return error_;
    const auto rename = [&](unsigned flags) {
        return renameat2(folder_, path_.constData(), folder_, target_.constData(), flags) == 0;
    };
    switch (existing) {
    case TargetFile::replace:
        check(rename(0));
        break;
    case TargetFile::mustNotExist:
        if (!rename(RENAME_NOREPLACE)) {
            // Not every file system can; a second name serves as well. This object removes the first.
            check(
                errno == EINVAL && linkat(folder_, path_.constData(), folder_, target_.constData(), 0) == 0);
            return error_;
        }
        break;
    case TargetFile::exchange:
        return rename(RENAME_EXCHANGE) ? std::error_code() : lastSystemError();
    }
    if (!error_)
        path_.clear();
    return error_;
}

std::error_code replaceFile(const QByteArray& target, QByteArrayView bytes, mode_t mode,
    Permissions permissions, int folder, WriteGuard guard)
{
    TemporaryFile file(target, mode, folder, guard);
    if (permissions == Permissions::ofTarget)
        file.copyPermissionsOfTarget();
    file.write(bytes);
    return file.commit();
}

void removeLeftovers(int folder)
{
    for (const QByteArray& name : entryNames(folder, S_IFREG, Names::hidden)) {
        if (!name.startsWith(prefix) || !name.endsWith(suffix))
            continue;
        const FileDescriptor file = openForReading(name, SymbolicLinks::refuse, folder);
        if (file && flock(file.get(), LOCK_SH | LOCK_NB) == 0)
            unlinkat(folder, name.constData(), 0);
    }
}

} // namespace quor::platform
