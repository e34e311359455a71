// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Lists/FileManager.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quor::toolkit {

namespace {

class Descriptor {
public:
    explicit Descriptor(int fd)
        : fd_(fd)
    {
    }
    ~Descriptor()
    {
        if (fd_ >= 0)
            close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int get() const { return fd_; }

private:
    int fd_;
};

// More than any list writes. A sparse file may claim to be longer than all memory.
constexpr qsizetype largestFile = qsizetype(1) << 30;

/// The size of an open regular file; none for anything else.
std::optional<qsizetype> regularSize(int fd)
{
    struct stat status;
    if (fd < 0 || fstat(fd, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return status.st_size;
}

int openForWriting(const QByteArray& path)
{
    constexpr mode_t mode = 0666; // less the process's mask
    return open(path.constData(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, mode);
}

bool writeAll(int fd, const QByteArray& data)
{
    qsizetype written = 0;
    while (written < data.size()) {
        const auto count
            = pwrite(fd, data.constData() + written, static_cast<size_t>(data.size() - written), written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

// False if there is no room for a file of that size. File systems that cannot tell say there is.
bool takeRoom(int fd, qsizetype size)
{
    return fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, size) == 0 || errno == EOPNOTSUPP;
}

// Beyond its limit a write ends the process, or fails halfway.
bool mayBeAsLarge(qsizetype size)
{
    struct rlimit limit;
    return getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY
        || static_cast<rlim_t>(size) <= limit.rlim_cur;
}

} // namespace

std::optional<QByteArray> FileManager::contents(const QString& path) const
{
    const Descriptor file(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const auto size = regularSize(file.get());
    if (!size || *size > largestFile)
        return std::nullopt;
    QByteArray data(*size, Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < data.size()) {
        const auto count = read(file.get(), data.data() + filled, static_cast<size_t>(data.size() - filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        filled += count;
    }
    data.truncate(filled);
    return data;
}

bool FileManager::write(const QByteArray& data, const QString& path) const
{
    if (!mayBeAsLarge(data.size()))
        return false;
    const QByteArray name = QFile::encodeName(path);
    int fd = openForWriting(name);
    if (fd < 0 && errno == ELOOP && unlink(name.constData()) == 0)
        fd = openForWriting(name);
    const Descriptor file(fd);
    const auto oldSize = regularSize(file.get());
    if (!oldSize)
        return false;
    const bool isNew = *oldSize == 0;
    // The room is taken before anything is overwritten.
    if (!isNew && *oldSize < data.size() && !takeRoom(file.get(), data.size()))
        return false;
    // Blanks cover what is left of a longer old text, so that a process that dies before it shortens
    // the file leaves valid JSON.
    if (!writeAll(file.get(), data.leftJustified(std::min(*oldSize, largestFile), ' '))) {
        if (isNew)
            unlink(name.constData());
        return false;
    }
    return *oldSize <= data.size() || ftruncate(file.get(), data.size()) == 0;
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
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), error);
    return !error;
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
    std::error_code error;
    std::filesystem::directory_iterator item(QFile::encodeName(directory).toStdString(), error);
    for (; !error && item != std::filesystem::directory_iterator(); item.increment(error)) {
        const std::string name = item->path().filename().string();
        std::error_code unknown;
        if (name.front() != '.'
            && item->symlink_status(unknown).type() == std::filesystem::file_type::regular)
            names.append(QFile::decodeName(name.c_str()));
    }
    return names;
}

} // namespace quor::toolkit
