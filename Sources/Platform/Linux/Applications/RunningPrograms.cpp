// SPDX-License-Identifier: MIT
#include "Platform/Linux/Applications/RunningPrograms.h"

#include "Platform/Files/FileContents.h"
#include "Platform/Files/Folder.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <csignal>

#include <climits>
#include <poll.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quor::platform {

namespace {

constexpr int endTimeout = 5000; // milliseconds

QByteArray linkTarget(const QByteArray& path)
{
    std::array<char, PATH_MAX> target{};
    const auto length = ::readlink(path.constData(), target.data(), target.size());
    return {target.data(), std::max<qsizetype>(length, 0)};
}

/// The image that a process comes from. It runs from a file system that the image is mounted at.
QByteArray imageOf(const QByteArray& process)
{
    // A file of the kernel, which does not know its size.
    const FileDescriptor file = openForReading(process + "/environ");
    QByteArray environment;
    std::array<char, PATH_MAX> buffer{};
    for (ssize_t count = 0; (count = ::read(file.get(), buffer.data(), buffer.size())) > 0;)
        environment.append(buffer.data(), count);
    for (const auto& variable : environment.split('\0')) {
        if (variable.startsWith("APPIMAGE="))
            return variable.mid(variable.indexOf('=') + 1);
    }
    return {};
}

bool runs(const QByteArray& process, const ApplicationBundle& bundle)
{
    const QByteArray program = linkTarget(process + "/exe");
    return program == bundle.path || program.startsWith(bundle.path + '/')
        || (bundle.program.isEmpty() && imageOf(process) == bundle.path);
}

} // namespace

RunningPrograms::RunningPrograms(const ApplicationBundle& bundle)
{
    const QByteArray processes("/proc");
    const FileDescriptor folder = openFolder(processes);
    for (const auto& name : entryNames(folder.get(), S_IFDIR)) {
        bool isNumber = false;
        const int number = name.toInt(&isNumber);
        if (!isNumber || number == ::getpid())
            continue;
        FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, number, 0)));
        // Compared after it is held: until then the number may have become another process's.
        if (process && runs(processes + '/' + name, bundle))
            processes_.push_back(std::move(process));
    }
}

bool RunningPrograms::end() const
{
    for (const auto& process : processes_) {
        if (::syscall(SYS_pidfd_send_signal, process.get(), SIGKILL, nullptr, 0) != 0 && errno != ESRCH)
            return false;
    }
    return std::all_of(processes_.begin(), processes_.end(), [](const FileDescriptor& process) {
        pollfd ending{process.get(), POLLIN, 0};
        return ::poll(&ending, 1, endTimeout) == 1;
    });
}

} // namespace quor::platform
