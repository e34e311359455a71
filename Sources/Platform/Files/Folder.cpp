// SPDX-License-Identifier: MIT
#include "Platform/Files/Folder.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <dirent.h>

namespace quor::platform {

namespace {

bool isOfKind(int folder, const dirent64& entry, mode_t kind)
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
    // Not by `readdir`, which needs a descriptor of its own: this works even if no more can be opened.
    std::vector<QByteArray> found;
    alignas(dirent64) std::array<char, std::size_t{16} * 1024> buffer;
    if (lseek(folder, 0, SEEK_SET) < 0)
        return found;
    ssize_t size = 0;
    while ((size = getdents64(folder, buffer.data(), buffer.size())) > 0) {
        for (ssize_t position = 0; position < size;) {
            const auto& entry = *reinterpret_cast<const dirent64*>(buffer.data() + position);
            position += entry.d_reclen;
            const bool isHidden = entry.d_name[0] == '.';
            const bool isLink = std::strcmp(entry.d_name, ".") == 0 || std::strcmp(entry.d_name, "..") == 0;
            if (!isLink && isHidden == (names == Names::hidden) && isOfKind(folder, entry, kind))
                found.emplace_back(entry.d_name);
        }
    }
    if (size == 0)
        errno = 0;
    return found;
}

} // namespace quor::platform
