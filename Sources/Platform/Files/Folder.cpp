// SPDX-License-Identifier: MIT
#include "Platform/Files/Folder.h"

#include <cerrno>
#include <cstring>
#include <memory>

#include <dirent.h>

namespace quor::platform {

namespace {

struct CloseStream {
    void operator()(DIR* stream) const { closedir(stream); }
};

bool isOfKind(int folder, const dirent& entry, mode_t kind)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == IFTODT(kind);
    struct stat status { };
    return fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
        && (status.st_mode & S_IFMT) == kind;
}

} // namespace

FileDescriptor openFolder(const QByteArray& path, SymbolicLinks links, int folder)
{
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    return FileDescriptor(
        openat(folder, path.constData(), links == SymbolicLinks::refuse ? flags | O_NOFOLLOW : flags));
}

std::error_code makeFolder(const QByteArray& path, mode_t mode)
{
    if (mkdir(path.constData(), mode) == 0 || errno == EEXIST)
        return {};
    if (errno != ENOENT)
        return lastSystemError();
    for (qsizetype slash = path.indexOf('/', 1); slash > 0; slash = path.indexOf('/', slash + 1))
        mkdir(path.first(slash).constData(), mode);
    return mkdir(path.constData(), mode) == 0 || errno == EEXIST ? std::error_code() : lastSystemError();
}

std::vector<QByteArray> entryNames(int folder, mode_t kind, Names names)
{
    std::vector<QByteArray> found;
    FileDescriptor copy = openFolder(".", SymbolicLinks::follow, folder); // the stream takes it over
    const std::unique_ptr<DIR, CloseStream> stream(copy ? fdopendir(copy.get()) : nullptr);
    if (!stream)
        return found;
    (void)copy.release();
    while (const dirent* entry = readdir(stream.get())) {
        const bool isHidden = entry->d_name[0] == '.';
        const bool isLink = std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0;
        if (!isLink && isHidden == (names == Names::hidden) && isOfKind(folder, *entry, kind))
            found.emplace_back(entry->d_name);
    }
    errno = 0;
    return found;
}

} // namespace quor::platform
