// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Lists/FileManager.h"

#include "Platform/Files/Folder.h"
#include "Platform/Files/TemporaryFile.h"

#include <QFile>

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <utility>

namespace quor::toolkit {

namespace {

// More than any list writes. A sparse file may claim to be longer than all memory.
constexpr qint64 largestFile = qint64(1) << 30;

// Longer than a tick of the clock by which file systems note the time of a change.
constexpr std::int64_t longestTick = 20'000'000; // nanoseconds

/// Whether there is no file that a list could have written. `error` is the reason why it was not opened or
/// read.
bool isNoFile(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP: // a symbolic link
    case ENXIO: // a socket
    case EINVAL: // a folder, a pipe, a device
    case EFBIG:
        return true;
    default:
        return false;
    }
}

bool isRecent(const platform::FileIdentity& identity)
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return std::int64_t(now.tv_sec) * 1'000'000'000 + now.tv_nsec - identity.modified < longestTick;
}

} // namespace

std::optional<FileManager::File> FileManager::read(const QString& path) const
{
    const auto file = platform::openForReading(QFile::encodeName(path), platform::SymbolicLinks::refuse);
    if (!file)
        return isNoFile(errno) ? std::optional(File()) : std::nullopt;
    platform::FileIdentity identity;
    auto contents = platform::readWhole(file.get(), largestFile, &identity);
    if (!contents && !isNoFile(errno))
        return std::nullopt;
    if (!contents && errno == EINVAL)
        return File();
    if (isRecent(identity))
        identity = {};
    return File{identity, std::move(contents).value_or(QByteArray())};
}

FileManager::Identity FileManager::identity(const QString& path) const
{
    struct stat status { };
    if (lstat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return platform::identityOf(status);
}

std::optional<platform::FolderLock> FileManager::lockDirectory(
    const QString& path, std::chrono::milliseconds timeout) const
{
    return platform::FolderLock::acquire(QFile::encodeName(path), timeout);
}

bool FileManager::write(const QByteArray& data, const QString& path) const
{
    constexpr mode_t mode = 0666; // the bits of the process's umask are cleared
    return !platform::replaceFile(QFile::encodeName(path), data, mode, platform::Permissions::ofTarget,
        AT_FDCWD, platform::WriteGuard::folderLock);
}

bool FileManager::removeFile(const QString& path) const
{
    return unlink(QFile::encodeName(path).constData()) == 0 || errno == ENOENT;
}

bool FileManager::itemExists(const QString& path) const
{
    struct stat status;
    return lstat(QFile::encodeName(path).constData(), &status) == 0;
}

bool FileManager::createDirectory(const QString& path) const
{
    constexpr mode_t mode = 0777; // the bits of the process's umask are cleared
    return !platform::makeFolder(QFile::encodeName(path), mode);
}

bool FileManager::removeDirectory(const QString& path) const
{
    std::error_code error;
    std::filesystem::remove_all(QFile::encodeName(path).toStdString(), error);
    return !error;
}

QStringList FileManager::visibleFileNames(const QString& directory) const
{
    QStringList names;
    const auto folder = platform::openFolder(QFile::encodeName(directory));
    for (const QByteArray& name : platform::entryNames(folder.get(), S_IFREG))
        names.append(QFile::decodeName(name));
    return names;
}

void FileManager::removeLeftovers(const platform::FolderLock& directory) const
{
    platform::removeLeftovers(directory.folder());
}

} // namespace quor::toolkit
