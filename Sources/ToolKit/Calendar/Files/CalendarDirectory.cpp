// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/CalendarDirectory.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"
#include "Platform/Files/TemporaryFile.h"
#include "ToolKit/Calendar/Items/ItemErrors.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <sys/file.h>
#include <sys/stat.h>

namespace quor::toolkit {

using platform::SymbolicLinks;
using platform::TargetFile;

namespace {

FileIdentity identityOf(const struct stat& status)
{
    return {status.st_ino, status.st_size,
        std::int64_t(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec};
}

EventStoreResult resultOf(const std::error_code& error, const QByteArray& name)
{
    return error ? EventStoreResult(systemError(error.value(), name)) : std::nullopt;
}

} // namespace

EventStoreError systemError(int number, const QByteArray& name)
{
    using Kind = EventStoreError::Kind;
    const auto error = [&](Kind kind) {
        return EventStoreError(kind,
            QString::fromUtf8(name) + QStringLiteral(": ") + QString::fromUtf8(strerrordesc_np(number)));
    };
    switch (number) {
    case EACCES:
    case EPERM:
    case EROFS:
        return error(Kind::readOnly);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return error(Kind::full);
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
        return error(Kind::notFound);
    case EEXIST:
        return error(Kind::conflict);
    default:
        return error(Kind::failed);
    }
}

bool isShortage(int error)
{
    return error == EMFILE || error == ENFILE || error == ENOMEM;
}

CalendarDirectory::CalendarDirectory(const QByteArray& root, const CalendarPath& path)
    : folder_(platform::openFolder(root))
{
    for (const QByteArray& name : {path.source, path.calendar}) {
        if (folder_ && !name.isEmpty())
            folder_ = platform::openFolder(name, SymbolicLinks::refuse, folder_.get());
    }
    lacksResources_ = !folder_ && isShortage(errno);
}

bool CalendarDirectory::isWritable() const
{
    return isOpen() && faccessat(folder_.get(), ".", W_OK, AT_EACCESS) == 0;
}

void CalendarDirectory::lock() const
{
    while (isOpen() && flock(folder_.get(), LOCK_EX) != 0 && errno == EINTR) { }
}

void CalendarDirectory::removeLeftovers() const
{
    if (isOpen())
        platform::removeLeftovers(folder_.get());
}

std::optional<std::vector<QByteArray>> CalendarDirectory::names() const
{
    if (!isOpen())
        return lacksResources_ ? std::nullopt : std::optional(std::vector<QByteArray>());
    auto names = platform::entryNames(folder_.get(), S_IFREG);
    return isShortage(errno) ? std::nullopt : std::optional(std::move(names));
}

std::optional<FileIdentity> CalendarDirectory::identity(const QByteArray& name) const
{
    struct stat status { };
    if (!isOpen() || fstatat(folder_.get(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0
        || !S_ISREG(status.st_mode))
        return std::nullopt;
    return identityOf(status);
}

std::optional<FileContent> CalendarDirectory::read(const QByteArray& name, qint64 limit) const
{
    const auto found = identity(name);
    if (!found)
        return std::nullopt;
    const auto file = platform::openForReading(name, SymbolicLinks::refuse, folder_.get());
    struct stat status { };
    if (!file || fstat(file.get(), &status) != 0)
        return FileContent{*found, std::nullopt, isShortage(errno)};
    return FileContent{identityOf(status), platform::readWhole(file.get(), limit), false};
}

EventStoreResult CalendarDirectory::write(const QByteArray& name, const QByteArray& bytes,
    const std::optional<FileIdentity>& expected, FileIdentity* written) const
{
    if (!isOpen())
        return systemError(ENOENT, name);
    if (expected && faccessat(folder_.get(), name.constData(), W_OK, AT_EACCESS) != 0 && errno != ENOENT)
        return systemError(errno, name);
    platform::TemporaryFile file(name, S_IRUSR | S_IWUSR, folder_.get());
    if (expected)
        file.copyPermissionsOfTarget();
    file.write(bytes);
    file.sync();
    struct stat status { };
    if (!file.error() && fstat(file.descriptor(), &status) == 0 && written)
        *written = identityOf(status);
    if (!expected)
        return resultOf(file.commit(TargetFile::mustNotExist), name);
    if (file.error())
        return resultOf(file.error(), name);
    if (identity(name) != expected)
        return conflict(QString::fromUtf8(name));
    const std::error_code error = file.commit(TargetFile::exchange);
    if (error == std::errc::invalid_argument) // the file system cannot exchange
        return resultOf(file.commit(TargetFile::replace), name);
    if (error)
        return resultOf(error, name);
    // Another program may have written between the check above and the exchange: its file is put back.
    if (identity(file.path()) == expected)
        return std::nullopt;
    (void)file.commit(TargetFile::exchange);
    return conflict(QString::fromUtf8(name));
}

EventStoreResult CalendarDirectory::remove(const QByteArray& name, const FileIdentity& expected) const
{
    if (!isOpen())
        return systemError(ENOENT, name);
    if (identity(name) != expected)
        return conflict(QString::fromUtf8(name));
    return unlinkat(folder_.get(), name.constData(), 0) == 0 ? EventStoreResult() : systemError(errno, name);
}

} // namespace quor::toolkit
