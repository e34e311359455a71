// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/CalendarDirectory.h"

#include "Platform/Files/Folder.h"
#include "Platform/Files/FolderLock.h"
#include "Platform/Files/TemporaryFile.h"
#include "ToolKit/Calendar/Items/ItemErrors.h"

#include <cerrno>
#include <chrono>
#include <cstring>

#include <sys/stat.h>

namespace quor::toolkit {

using platform::SymbolicLinks;
using platform::TargetFile;

namespace {

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

bool isTemporary(int error)
{
    return error == EMFILE || error == ENFILE || error == ENOMEM;
}

EventStoreError FileContent::failure(const QByteArray& name) const
{
    return isTemporary(error) ? systemError(error, name) : unreadable(QString::fromUtf8(name));
}

CalendarDirectory::CalendarDirectory(const QByteArray& root, const CalendarPath& path)
    : folder_(platform::openFolder(root))
{
    for (const QByteArray& name : {path.source, path.calendar}) {
        if (folder_ && !name.isEmpty())
            folder_ = platform::openFolder(name, SymbolicLinks::refuse, folder_.get());
    }
    if (!folder_)
        openError_ = errno;
}

bool CalendarDirectory::isWritable() const
{
    return isOpen() && !writeObstacle();
}

EventStoreResult CalendarDirectory::writeObstacle(const QByteArray& name) const
{
    if (!isOpen())
        return systemError(openError_, name);
    for (const QByteArray& each : {QByteArray("."), name}) {
        if (!each.isEmpty() && faccessat(folder_.get(), each.constData(), W_OK, AT_EACCESS) != 0
            && errno != ENOENT)
            return systemError(errno, each == "." ? QByteArray("the folder of ") + name : name);
    }
    return std::nullopt;
}

EventStoreResult CalendarDirectory::lock(const QByteArray& name) const
{
    constexpr std::chrono::seconds longestWait(5);
    if (!isOpen())
        return systemError(openError_, name);
    return platform::lockFolder(folder_.get(), longestWait)
        ? std::nullopt
        : EventStoreResult(systemError(EWOULDBLOCK, name));
}

void CalendarDirectory::removeLeftovers() const
{
    if (isOpen())
        platform::removeLeftovers(folder_.get());
}

std::vector<QByteArray> CalendarDirectory::names(mode_t kind) const
{
    return isOpen() ? platform::entryNames(folder_.get(), kind) : std::vector<QByteArray>();
}

std::optional<FileIdentity> CalendarDirectory::identity(const QByteArray& name) const
{
    struct stat status { };
    if (!isOpen() || fstatat(folder_.get(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0
        || !S_ISREG(status.st_mode))
        return std::nullopt;
    return platform::identityOf(status);
}

std::optional<FileContent> CalendarDirectory::read(const QByteArray& name, qint64 limit) const
{
    const auto found = identity(name);
    if (!found)
        return std::nullopt;
    const auto file = platform::openForReading(name, SymbolicLinks::refuse, folder_.get());
    struct stat status { };
    if (!file || fstat(file.get(), &status) != 0)
        return FileContent{*found, std::nullopt, errno};
    return FileContent{platform::identityOf(status), platform::readWhole(file.get(), limit)};
}

EventStoreResult CalendarDirectory::write(const QByteArray& name, const QByteArray& bytes,
    const std::optional<FileIdentity>& expected, FileIdentity* written) const
{
    if (auto obstacle = writeObstacle(name))
        return obstacle;
    platform::TemporaryFile file(name, S_IRUSR | S_IWUSR, folder_.get());
    if (expected)
        file.copyPermissionsOfTarget();
    file.write(bytes);
    file.sync();
    struct stat status { };
    if (!file.error() && fstat(file.descriptor(), &status) == 0 && written)
        *written = platform::identityOf(status);
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
        return systemError(openError_, name);
    if (identity(name) != expected)
        return conflict(QString::fromUtf8(name));
    return unlinkat(folder_.get(), name.constData(), 0) == 0 ? EventStoreResult() : systemError(errno, name);
}

} // namespace quor::toolkit
