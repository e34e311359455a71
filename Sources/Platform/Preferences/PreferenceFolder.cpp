// SPDX-License-Identifier: MIT
#include "Platform/Preferences/PreferenceFolder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quor::platform {

namespace {

constexpr qsizetype largestContent = qsizetype(256) << 20;

// No key's file name begins with a dot. The last six characters are filled in.
constexpr QByteArrayView temporaryName = "/.new-XXXXXX";
constexpr std::time_t abandonedAfter = 3600; // seconds; a write takes no more than one

/// The key with every byte that is not plain in a file name as %XX, a leading dot too. Empty for a key
/// that is no Unicode: halves of surrogate pairs would all become one byte.
QByteArray fileName(const QString& key)
{
    if (!key.isValidUtf16())
        return {};
    static constexpr QByteArrayView digits = "0123456789ABCDEF";
    QByteArray name;
    for (const char byte : key.toUtf8()) {
        const bool isPlain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z')
            || (byte >= '0' && byte <= '9') || byte == '_' || byte == '-' || (byte == '.' && !name.isEmpty());
        if (isPlain) {
            name += byte;
            continue;
        }
        const auto value = static_cast<unsigned char>(byte);
        name += '%';
        name += digits[value >> 4];
        name += digits[value & 15];
    }
    return name;
}

bool isUsableFolder(const QByteArray& path)
{
    return access((path + "/.").constData(), X_OK) == 0;
}

bool readAll(int file, QByteArray& bytes)
{
    qsizetype size = 0;
    while (size < bytes.size()) {
        const auto count = read(file, bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        if (count == 0)
            break;
        size += count;
    }
    bytes.truncate(size);
    return true;
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

} // namespace

PreferenceFolder::PreferenceFolder(QByteArray path)
    : path_(std::move(path))
{
}

bool PreferenceFolder::open() const
{
    if (path_.isEmpty())
        return false;
    if (isUsableFolder(path_))
        return true;
    for (qsizetype slash = path_.indexOf('/', 1); slash > 0; slash = path_.indexOf('/', slash + 1))
        mkdir(path_.first(slash).constData(), S_IRWXU);
    mkdir(path_.constData(), S_IRWXU);
    return isUsableFolder(path_);
}

QByteArray PreferenceFolder::pathOf(const QString& key) const
{
    const QByteArray name = fileName(key);
    return path_.isEmpty() || name.isEmpty() ? QByteArray() : path_ + '/' + name;
}

std::optional<QByteArray> PreferenceFolder::read(const QString& key) const
{
    const QByteArray path = pathOf(key);
    if (path.isEmpty())
        return std::nullopt;
    // Without O_NONBLOCK, a pipe in the file's place would hold us until somebody writes into it.
    const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0)
        return std::nullopt;
    std::optional<QByteArray> content;
    struct stat status { };
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= largestContent) {
        content.emplace(status.st_size, Qt::Uninitialized);
        if (!readAll(file, *content))
            content.reset();
    }
    close(file);
    return content;
}

bool PreferenceFolder::replace(const QString& key, QByteArrayView head, QByteArrayView body) const
{
    const QByteArray path = pathOf(key);
    if (path.isEmpty() || head.size() + body.size() > largestContent)
        return false;
    QByteArray temporary;
    const int file = makeTemporary(temporary);
    if (file < 0)
        return false;
    const bool isWritten = writeAll(file, head) && writeAll(file, body);
    const bool isClosed = close(file) == 0; // some file systems tell only now that the disk is full
    if (isWritten && isClosed && rename(temporary.constData(), path.constData()) == 0)
        return true;
    unlink(temporary.constData());
    return false;
}

int PreferenceFolder::makeTemporary(QByteArray& path) const
{
    const auto make = [&] {
        path = path_;
        path.append(temporaryName);
        return mkostemp(path.data(), O_CLOEXEC); // mode 0600, and a name that nobody else has
    };
    int file = make();
    if (file < 0 && open())
        file = make();
    // A writer that was killed leaves its file behind. Looking for such files at one write in 62, as
    // the random name decides, keeps them few and costs nothing that can be measured.
    if (file >= 0 && path.endsWith('A'))
        removeAbandoned();
    return file;
}

void PreferenceFolder::removeAbandoned() const
{
    struct CloseFolder {
        void operator()(DIR* folder) const { closedir(folder); }
    };
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(path_.constData()));
    const QByteArrayView prefix = temporaryName.sliced(1).chopped(6);
    const std::time_t now = std::time(nullptr);
    while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
        struct stat status { };
        if (QByteArrayView(entry->d_name).startsWith(prefix)
            && fstatat(dirfd(folder.get()), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISREG(status.st_mode) && now - status.st_mtime > abandonedAfter)
            unlinkat(dirfd(folder.get()), entry->d_name, 0);
    }
}

bool PreferenceFolder::remove(const QString& key) const
{
    const QByteArray path = pathOf(key);
    return !path.isEmpty() && (unlink(path.constData()) == 0 || (errno == ENOENT && open()));
}

} // namespace quor::platform
