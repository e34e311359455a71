// SPDX-License-Identifier: MIT
#include "Platform/Files/FileContents.h"

#include <sys/resource.h>

namespace quor::platform {

namespace {

/// A write beyond the limit would raise SIGXFSZ, which ends the process.
bool exceedsSizeLimit(int file, qsizetype added)
{
    struct rlimit limit { };
    struct stat status { };
    return getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY
        && fstat(file, &status) == 0 && S_ISREG(status.st_mode)
        && static_cast<rlim_t>(status.st_size) + static_cast<rlim_t>(added) > limit.rlim_cur;
}

} // namespace

FileIdentity identityOf(const struct stat& status)
{
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    return {status.st_ino, status.st_size,
        std::int64_t(status.st_mtim.tv_sec) * nanoseconds + status.st_mtim.tv_nsec};
}

FileDescriptor openForReading(const QByteArray& path, SymbolicLinks links, int folder)
{
    const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    return FileDescriptor(
        openat(folder, path.constData(), links == SymbolicLinks::refuse ? flags | O_NOFOLLOW : flags));
}

std::optional<QByteArray> readWhole(int file, qint64 limit, FileIdentity* identity)
{
    struct stat status { };
    if (fstat(file, &status) != 0)
        return std::nullopt;
    const bool isRegular = S_ISREG(status.st_mode);
    if (isRegular && identity)
        *identity = identityOf(status);
    if (!isRegular || status.st_size > limit) {
        errno = isRegular ? EFBIG : EINVAL;
        return std::nullopt;
    }
    QByteArray bytes(status.st_size, Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < bytes.size()) {
        const auto count = read(file, bytes.data() + filled, static_cast<std::size_t>(bytes.size() - filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break; // another process has shortened the file
        filled += count;
    }
    bytes.truncate(filled);
    return bytes;
}

std::optional<QByteArray> readFile(const QByteArray& path, qint64 limit, SymbolicLinks links, int folder)
{
    const FileDescriptor file = openForReading(path, links, folder);
    return readWhole(file.get(), limit);
}

std::error_code writeWhole(int file, QByteArrayView bytes)
{
    if (exceedsSizeLimit(file, bytes.size()))
        return std::make_error_code(std::errc::file_too_large);
    while (!bytes.isEmpty()) {
        const auto count = write(file, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return lastSystemError();
        bytes = bytes.sliced(count);
    }
    return {};
}

} // namespace quor::platform
