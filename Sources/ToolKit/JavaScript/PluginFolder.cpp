// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/PluginFolder.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"
#include "Platform/Files/TemporaryFile.h"

#include <QFile>

#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quor::toolkit {

using platform::FileDescriptor;

namespace {

constexpr qint64 largestFile = qint64(256) << 20;

/// The names in the path, none for the folder itself. Returns `nullopt` for a path that must be refused.
std::optional<QByteArrayList> componentsOf(const QString& path)
{
    if (path.contains(QLatin1String("..")) || path.contains(QChar::Null) || !path.isValidUtf16())
        return std::nullopt;
    QByteArrayList components = QFile::encodeName(path).split('/');
    components.removeAll(QByteArray());
    components.removeAll(QByteArray("."));
    return components;
}

FileDescriptor openStep(int folder, const QByteArray& name, int flags)
{
    return FileDescriptor(openat(folder, name.constData(), flags | O_NOFOLLOW | O_CLOEXEC));
}

FileDescriptor openByWalk(int base, const QByteArrayList& components, int flags)
{
    FileDescriptor folder = openStep(base, ".", O_PATH | O_DIRECTORY);
    for (qsizetype i = 0; i + 1 < components.size() && folder; ++i)
        folder = openStep(folder.get(), components[i], O_PATH | O_DIRECTORY);
    if (!folder)
        return {};
    FileDescriptor last = openStep(folder.get(), components.isEmpty() ? "." : components.last(), flags);
    struct stat status;
    // O_PATH opens a link itself, even with O_NOFOLLOW.
    if (last && fstat(last.get(), &status) == 0 && S_ISLNK(status.st_mode))
        return {};
    return last;
}

} // namespace

PluginFolder::PluginFolder(const QUrl& baseURL, Resolution resolution)
    : base_(baseURL.isLocalFile() ? QFile::encodeName(baseURL.toLocalFile()) : QByteArray())
    , resolution_(resolution)
{
}

bool PluginFolder::exists(const QString& path) const
{
    const auto components = componentsOf(path);
    return components && openBelow(*components, O_PATH);
}

std::optional<QByteArray> PluginFolder::contents(const QString& path) const
{
    const auto components = componentsOf(path);
    if (!components)
        return std::nullopt;
    // Opening must neither wait for a writer of a pipe nor make a terminal this process's own.
    const FileDescriptor file = openBelow(*components, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    return platform::readWhole(file.get(), largestFile);
}

bool PluginFolder::write(const QByteArray& data, const QString& path) const
{
    const auto components = componentsOf(path);
    if (!components || components->isEmpty())
        return false;
    const FileDescriptor folder = openParent(*components);
    if (!folder)
        return false;
    // A folder opened with O_PATH cannot be listed.
    platform::removeLeftovers(platform::openFolder(".", platform::SymbolicLinks::follow, folder.get()).get());
    constexpr mode_t mode = 0666; // the bits of the process's umask are cleared
    return !platform::replaceFile(
        components->last(), data, mode, platform::Permissions::ofTarget, folder.get());
}

void PluginFolder::remove(const QString& path) const
{
    const auto components = componentsOf(path);
    if (!components || components->isEmpty())
        return;
    const FileDescriptor folder = openParent(*components);
    if (folder)
        unlinkat(folder.get(), components->last().constData(), 0);
}

FileDescriptor PluginFolder::openParent(const QByteArrayList& components) const
{
    return openBelow(components.first(components.size() - 1), O_PATH | O_DIRECTORY);
}

FileDescriptor PluginFolder::openBelow(const QByteArrayList& components, int flags) const
{
    const FileDescriptor base(
        base_.isEmpty() ? -1 : open(base_.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!base)
        return {};
    if (resolution_ == Resolution::byWalk)
        return openByWalk(base.get(), components, flags);
    const QByteArray path = components.isEmpty() ? QByteArray(".") : components.join('/');
    open_how how{};
    how.flags = static_cast<__u64>(flags | O_CLOEXEC);
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS;
    constexpr int mostAttempts = 32;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const long opened = syscall(SYS_openat2, base.get(), path.constData(), &how, sizeof how);
        if (opened >= 0)
            return FileDescriptor(static_cast<int>(opened));
        if (errno == ENOSYS || errno == EPERM)
            return openByWalk(base.get(), components, flags);
        if (errno != EAGAIN && errno != EINTR) // EAGAIN: a folder on the way was renamed meanwhile
            return {};
    }
    return {};
}

} // namespace quor::toolkit
