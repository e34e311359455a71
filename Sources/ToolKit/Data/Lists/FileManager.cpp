// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Lists/FileManager.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"
#include "Platform/Files/TemporaryFile.h"

#include <QFile>

#include <filesystem>

namespace quor::toolkit {

namespace {

// More than any list writes. A sparse file may claim to be longer than all memory.
constexpr qint64 largestFile = qint64(1) << 30;

} // namespace

std::optional<QByteArray> FileManager::contents(const QString& path) const
{
    const auto file = platform::openForReading(QFile::encodeName(path), platform::SymbolicLinks::refuse);
    if (!file && (errno == EMFILE || errno == ENFILE || errno == ENOMEM))
        return std::nullopt;
    return platform::readWhole(file.get(), largestFile).value_or(QByteArray());
}

bool FileManager::write(const QByteArray& data, const QString& path) const
{
    constexpr mode_t mode = 0666; // the bits of the process's umask are cleared
    return !platform::replaceFile(QFile::encodeName(path), data, mode, platform::Permissions::ofTarget);
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

void FileManager::removeLeftovers(const QString& directory) const
{
    platform::removeLeftovers(platform::openFolder(QFile::encodeName(directory)).get());
}

} // namespace quor::toolkit
