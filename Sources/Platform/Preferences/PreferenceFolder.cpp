// SPDX-License-Identifier: MIT
#include "Platform/Preferences/PreferenceFolder.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"
#include "Platform/Files/TemporaryFile.h"

#include <QStringBuilder>

#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace quor::platform {

namespace {

constexpr qsizetype largestContent = qsizetype(256) << 20;
constexpr mode_t folderMode = 0700;
constexpr mode_t fileMode = 0600;

/// Returns the file name of a key. Returns an empty name for a key that is no valid Unicode: encoded, half
/// of any surrogate pair would be the same byte.
QByteArray fileName(const QString& key)
{
    if (!key.isValidUtf16())
        return {};
    static constexpr QByteArrayView digits = "0123456789ABCDEF";
    const QByteArray bytes = key.toUtf8();
    QByteArray name;
    name.reserve(bytes.size()); // names are made in each update of the status item
    for (const char byte : bytes) {
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

} // namespace

PreferenceFolder::PreferenceFolder(QByteArray path)
    : path_(std::move(path))
{
}

bool PreferenceFolder::open() const
{
    if (path_.isEmpty())
        return false;
    return isUsableFolder(path_) || (!makeFolder(path_, folderMode) && isUsableFolder(path_));
}

QByteArray PreferenceFolder::pathOf(const QString& key) const
{
    const QByteArray name = fileName(key);
    if (path_.isEmpty() || name.isEmpty())
        return {};
    return path_ % '/' % name;
}

std::optional<QByteArray> PreferenceFolder::read(const QString& key) const
{
    const QByteArray path = pathOf(key);
    return path.isEmpty() ? std::nullopt : readFile(path, largestContent);
}

bool PreferenceFolder::replace(const QString& key, const QByteArray& content) const
{
    const QByteArray path = pathOf(key);
    if (path.isEmpty() || content.size() > largestContent)
        return false;
    removeLeftovers(openFolder(path_).get());
    const auto store = [&] { return replaceFile(path, content, fileMode, Permissions::fixed); };
    std::error_code error = store();
    if (error == std::errc::no_such_file_or_directory && open())
        error = store();
    return !error;
}

bool PreferenceFolder::remove(const QString& key) const
{
    const QByteArray path = pathOf(key);
    return !path.isEmpty() && (unlink(path.constData()) == 0 || (errno == ENOENT && open()));
}

} // namespace quor::platform
