// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/CalendarDirectory.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quor::toolkit {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

/// Visible names of a kind in a folder that is not closed.
std::vector<QByteArray> namesIn(int folder, mode_t kind)
{
    std::vector<QByteArray> names;
    const int copy = folder < 0 ? -1 : openat(folder, ".", folderFlags);
    const std::unique_ptr<DIR, CloseFolder> entries(copy < 0 ? nullptr : fdopendir(copy));
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
        if (entry->d_name[0] == '.')
            continue;
        struct stat status { };
        const bool isKnown = entry->d_type != DT_UNKNOWN;
        const bool matches = isKnown ? entry->d_type == IFTODT(kind)
                                     : fstatat(folder, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
                && (status.st_mode & S_IFMT) == kind;
        if (matches)
            names.emplace_back(entry->d_name);
    }
    std::ranges::sort(names);
    return names;
}

FileIdentity identityOf(const struct stat& status)
{
    return {status.st_ino, status.st_size,
        std::int64_t(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec};
}

bool writeAll(int file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const auto count = write(file, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.sliced(count);
    }
    return true;
}

std::optional<QByteArray> readAll(int file, qint64 size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < bytes.size()) {
        const auto count
            = ::read(file, bytes.data() + filled, static_cast<std::size_t>(bytes.size() - filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        filled += count;
    }
    bytes.truncate(filled);
    return bytes;
}

EventStoreError changedElsewhere(const QByteArray& name)
{
    return {EventStoreError::Kind::conflict,
        QString::fromUtf8(name) + QStringLiteral(": changed by another program")};
}

} // namespace

EventStoreError systemError(int number, const QByteArray& name)
{
    using Kind = EventStoreError::Kind;
    const QString text
        = QString::fromUtf8(name) + QStringLiteral(": ") + QString::fromUtf8(strerrordesc_np(number));
    switch (number) {
    case EACCES:
    case EPERM:
    case EROFS:
        return {Kind::readOnly, text};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {Kind::full, text};
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
        return {Kind::notFound, text};
    case EEXIST:
        return {Kind::conflict, text};
    default:
        return {Kind::failed, text};
    }
}

std::vector<QByteArray> subfolders(const QByteArray& folder)
{
    const int descriptor = open(folder.constData(), folderFlags);
    auto names = namesIn(descriptor, S_IFDIR);
    if (descriptor >= 0)
        close(descriptor);
    return names;
}

CalendarDirectory::CalendarDirectory(const QByteArray& root, const CalendarPath& path)
    : folder_(open(root.constData(), folderFlags))
{
    for (const QByteArray& name : {path.source, path.calendar}) {
        if (name.isEmpty() || folder_ < 0)
            continue;
        const int below = openat(folder_, name.constData(), folderFlags | O_NOFOLLOW);
        close(folder_);
        folder_ = below;
    }
}

CalendarDirectory::~CalendarDirectory()
{
    if (folder_ >= 0)
        close(folder_);
}

std::optional<EventStoreError> CalendarDirectory::make(const QByteArray& root, const CalendarPath& path)
{
    const QByteArray full = root + '/' + path.source + (path.calendar.isEmpty() ? "" : "/" + path.calendar);
    for (qsizetype slash = full.indexOf('/', 1); slash > 0; slash = full.indexOf('/', slash + 1))
        mkdir(full.first(slash).constData(), S_IRWXU);
    if (mkdir(full.constData(), S_IRWXU) == 0 || errno == EEXIST)
        return std::nullopt;
    return systemError(errno, full);
}

std::optional<EventStoreError> CalendarDirectory::removeCalendar(
    const QByteArray& root, const CalendarPath& path)
{
    const CalendarDirectory directory(root, path);
    if (!directory.isOpen())
        return systemError(ENOENT, path.identifier());
    directory.lock();
    for (const QByteArray& name : directory.names()) {
        const bool isOurs = name.endsWith(".ics") || name == "displayname" || name == "color";
        const auto identity = isOurs ? directory.identity(name) : std::nullopt;
        if (auto failure = identity ? directory.remove(name, *identity) : std::nullopt)
            return failure;
    }
    const QByteArray folder = root + '/' + path.identifier();
    if (rmdir(folder.constData()) == 0 || errno == ENOTEMPTY || errno == EEXIST || errno == ENOENT)
        return std::nullopt;
    return systemError(errno, path.identifier());
}

bool CalendarDirectory::isWritable() const
{
    return isOpen() && faccessat(folder_, ".", W_OK, AT_EACCESS) == 0;
}

void CalendarDirectory::lock() const
{
    while (isOpen() && flock(folder_, LOCK_EX) != 0 && errno == EINTR) { }
}

std::vector<QByteArray> CalendarDirectory::names() const
{
    return namesIn(folder_, S_IFREG);
}

std::optional<FileIdentity> CalendarDirectory::identity(const QByteArray& name) const
{
    struct stat status { };
    if (!isOpen() || fstatat(folder_, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0
        || !S_ISREG(status.st_mode))
        return std::nullopt;
    return identityOf(status);
}

std::optional<FileContent> CalendarDirectory::read(const QByteArray& name, qint64 limit) const
{
    const auto found = identity(name);
    if (!found)
        return std::nullopt;
    FileContent content{*found, std::nullopt};
    const int file = openat(folder_, name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct stat status { };
    if (file >= 0 && fstat(file, &status) == 0 && S_ISREG(status.st_mode)) {
        content.identity = identityOf(status);
        if (status.st_size <= limit)
            content.bytes = readAll(file, status.st_size);
    }
    if (file >= 0)
        close(file);
    return content;
}

// A new file must not take another's place. Of an existing one, the two are exchanged and the old one is
// looked at: an edit that another program made since we looked is put back, whenever it came.
std::optional<EventStoreError> CalendarDirectory::put(
    const QByteArray& temporary, const QByteArray& name, const std::optional<FileIdentity>& expected) const
{
    const auto exchange = [&](unsigned flags) {
        return renameat2(folder_, temporary.constData(), folder_, name.constData(), flags) == 0;
    };
    if (!expected) {
        if (exchange(RENAME_NOREPLACE))
            return std::nullopt;
        if (errno != EINVAL)
            return systemError(errno, name);
        if (linkat(folder_, temporary.constData(), folder_, name.constData(), 0) != 0)
            return systemError(errno, name);
        unlinkat(folder_, temporary.constData(), 0);
        return std::nullopt;
    }
    if (identity(name) != expected)
        return changedElsewhere(name);
    if (!exchange(RENAME_EXCHANGE)) {
        if (errno != EINVAL) // else the file system cannot exchange
            return systemError(errno, name);
        return exchange(0) ? std::optional<EventStoreError>() : systemError(errno, name);
    }
    if (identity(temporary) != expected) {
        exchange(RENAME_EXCHANGE);
        return changedElsewhere(name);
    }
    unlinkat(folder_, temporary.constData(), 0);
    return std::nullopt;
}

std::optional<EventStoreError> CalendarDirectory::write(const QByteArray& name, const QByteArray& bytes,
    const std::optional<FileIdentity>& expected, FileIdentity* written) const
{
    if (!isOpen())
        return systemError(ENOENT, name);
    struct stat old { };
    const bool isThere = expected && fstatat(folder_, name.constData(), &old, AT_SYMLINK_NOFOLLOW) == 0;
    if (isThere && faccessat(folder_, name.constData(), W_OK, AT_EACCESS) != 0)
        return systemError(errno, name);
    const QByteArray temporary
        = ".quor-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36) + ".new";
    const int file
        = openat(folder_, temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        return systemError(errno, name);
    struct stat status { };
    errno = 0;
    bool isWritten = writeAll(file, bytes) && (!isThere || fchmod(file, old.st_mode & 07777) == 0)
        && (fdatasync(file) == 0 || errno == EINVAL) // or a power cut may leave the name without the bytes
        && fstat(file, &status) == 0;
    int reason = isWritten ? 0 : errno;
    if (close(file) != 0 && isWritten) { // some file systems tell only now that the disk is full
        isWritten = false;
        reason = errno;
    }
    auto failure = isWritten ? put(temporary, name, expected) : systemError(reason, name);
    if (failure)
        unlinkat(folder_, temporary.constData(), 0);
    else if (written)
        *written = identityOf(status);
    return failure;
}

std::optional<EventStoreError> CalendarDirectory::remove(
    const QByteArray& name, const FileIdentity& expected) const
{
    if (!isOpen())
        return systemError(ENOENT, name);
    if (identity(name) != expected)
        return changedElsewhere(name);
    return unlinkat(folder_, name.constData(), 0) == 0 ? std::optional<EventStoreError>()
                                                       : systemError(errno, name);
}

} // namespace quor::toolkit
