// SPDX-License-Identifier: MIT
#include "Platform/Files/FolderLock.h"

#include "Platform/Files/Folder.h"

#include <cerrno>
#include <thread>

#include <sys/file.h>
#include <sys/stat.h>

namespace quor::platform {

namespace {

using Clock = std::chrono::steady_clock;

bool lockUntil(int folder, Clock::time_point end)
{
    // `flock` itself can only wait without a limit.
    constexpr std::chrono::milliseconds pause(1);
    while (flock(folder, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true; // the file system has no locks
        if (Clock::now() >= end)
            return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

bool isAt(int folder, const QByteArray& path)
{
    struct stat opened { };
    struct stat present { };
    return fstat(folder, &opened) == 0 && stat(path.constData(), &present) == 0
        && opened.st_ino == present.st_ino && opened.st_dev == present.st_dev;
}

} // namespace

bool lockFolder(int folder, std::chrono::milliseconds timeout)
{
    return lockUntil(folder, Clock::now() + timeout);
}

std::optional<FolderLock> FolderLock::acquire(const QByteArray& path, std::chrono::milliseconds timeout)
{
    const auto end = Clock::now() + timeout;
    while (true) {
        FileDescriptor folder = openFolder(path);
        if (!folder)
            return std::nullopt;
        if (!lockUntil(folder.get(), end)) {
            errno = EWOULDBLOCK;
            return std::nullopt;
        }
        if (isAt(folder.get(), path)) // otherwise it was removed or replaced while this waited
            return FolderLock(std::move(folder));
    }
}

} // namespace quor::platform
