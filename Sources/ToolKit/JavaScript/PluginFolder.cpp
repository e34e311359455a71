// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/PluginFolder.h"

#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quor::toolkit {

namespace {

constexpr qint64 largestFile = qint64(256) << 20;

class Descriptor {
public:
    explicit Descriptor(int fd)
        : fd_(fd)
    {
    }
    ~Descriptor()
    {
        if (fd_ >= 0)
            ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int get() const { return fd_; }
    explicit operator bool() const { return fd_ >= 0; }
    [[nodiscard]] bool close() { return ::close(std::exchange(fd_, -1)) == 0; }
    void reset(int fd) { const Descriptor before(std::exchange(fd_, fd)); }
    [[nodiscard]] int release() { return std::exchange(fd_, -1); }

private:
    int fd_;
};

/// None for what must be refused; empty for the folder itself.
std::optional<QByteArrayList> componentsOf(const QString& path)
{
    if (path.contains(QLatin1String("..")) || path.contains(QChar::Null) || !path.isValidUtf16())
        return std::nullopt;
    QByteArrayList components = QFile::encodeName(path).split('/');
    components.removeAll(QByteArray());
    components.removeAll(QByteArray("."));
    return components;
}

bool isRegular(int fd, qint64* size)
{
    struct stat status;
    if (fstat(fd, &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    *size = status.st_size;
    return true;
}

bool writeAll(int fd, const QByteArray& data)
{
    // Beyond its limit a write would end the process.
    struct rlimit limit;
    if (getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY
        && static_cast<rlim_t>(data.size()) > limit.rlim_cur)
        return false;
    qsizetype written = 0;
    while (written < data.size()) {
        const auto count
            = ::write(fd, data.constData() + written, static_cast<size_t>(data.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

void keepMode(int folder, const char* name, int fd)
{
    struct stat status;
    constexpr mode_t permissions = 0777;
    if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode))
        (void)fchmod(fd, status.st_mode & permissions); // at worst the file gets the usual mode
}

int openStep(int folder, const char* name, int flags)
{
    return openat(folder, name, flags | O_NOFOLLOW | O_CLOEXEC);
}

int openByWalk(int base, const QByteArrayList& components, int flags)
{
    Descriptor folder(openStep(base, ".", O_PATH | O_DIRECTORY));
    for (qsizetype i = 0; i + 1 < components.size() && folder; ++i)
        folder.reset(openStep(folder.get(), components[i].constData(), O_PATH | O_DIRECTORY));
    if (!folder)
        return -1;
    Descriptor last(
        openStep(folder.get(), components.isEmpty() ? "." : components.last().constData(), flags));
    struct stat status;
    // With O_PATH a link itself is opened.
    if (last && fstat(last.get(), &status) == 0 && S_ISLNK(status.st_mode))
        return -1;
    return last.release();
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
    const Descriptor base(openBase());
    return components && base && Descriptor(openBelow(base.get(), *components, O_PATH));
}

std::optional<QByteArray> PluginFolder::contents(const QString& path) const
{
    const auto components = componentsOf(path);
    const Descriptor base(openBase());
    if (!components || !base)
        return std::nullopt;
    // A pipe must not be waited for, a terminal not be taken.
    const Descriptor file(openBelow(base.get(), *components, O_RDONLY | O_NONBLOCK | O_NOCTTY));
    qint64 size = 0;
    if (!file || !isRegular(file.get(), &size) || size > largestFile)
        return std::nullopt;
    QByteArray data(size, Qt::Uninitialized);
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

bool PluginFolder::write(const QByteArray& data, const QString& path) const
{
    const auto components = componentsOf(path);
    if (!components || components->isEmpty())
        return false;
    const Descriptor folder(openParent(*components));
    if (!folder)
        return false;
    const char* name = components->last().constData();
    const QByteArray temporary
        = ".plugin-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    constexpr mode_t mode = 0666; // less the process's mask
    Descriptor file(openat(
        folder.get(), temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!file)
        return false;
    keepMode(folder.get(), name, file.get());
    if (writeAll(file.get(), data) && file.close()
        && renameat(folder.get(), temporary.constData(), folder.get(), name) == 0)
        return true;
    unlinkat(folder.get(), temporary.constData(), 0);
    return false;
}

void PluginFolder::remove(const QString& path) const
{
    const auto components = componentsOf(path);
    if (!components || components->isEmpty())
        return;
    const Descriptor folder(openParent(*components));
    if (folder)
        unlinkat(folder.get(), components->last().constData(), 0);
}

int PluginFolder::openBelow(int base, const QByteArrayList& components, int flags) const
{
    if (resolution_ == Resolution::byWalk)
        return openByWalk(base, components, flags);
    const QByteArray path = components.isEmpty() ? QByteArray(".") : components.join('/');
    open_how how{};
    how.flags = static_cast<__u64>(flags | O_CLOEXEC);
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS;
    constexpr int attempts = 32;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const long fd = syscall(SYS_openat2, base, path.constData(), &how, sizeof how);
        if (fd >= 0)
            return static_cast<int>(fd);
        if (errno == ENOSYS || errno == EPERM)
            return openByWalk(base, components, flags);
        if (errno != EAGAIN && errno != EINTR) // again: something was renamed on the way
            return -1;
    }
    return -1;
}

int PluginFolder::openParent(const QByteArrayList& components) const
{
    const Descriptor base(openBase());
    return base ? openBelow(base.get(), components.first(components.size() - 1), O_PATH | O_DIRECTORY) : -1;
}

int PluginFolder::openBase() const
{
    return base_.isEmpty() ? -1 : open(base_.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

} // namespace quor::toolkit
