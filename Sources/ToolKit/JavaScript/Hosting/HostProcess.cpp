// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/HostProcess.h"

#include "ToolKit/JavaScript/Hosting/ScriptMessage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

// Only programs that were linked with an installed kit define it (cmake/InstalledBundles.cpp.in).
extern "C" [[gnu::weak]] const char quorInstalledPrograms[];

namespace quor::toolkit {

using platform::FileDescriptor;

namespace {

QString programPath()
{
    // The library does not need a QCoreApplication, which knows this path too.
    const QFileInfo executable(QFile::symLinkTarget(u"/proc/self/exe"_s));
    QStringList folders{executable.path() + "/../libexec/quor"_L1};
    if (quorInstalledPrograms)
        folders += QFile::decodeName(quorInstalledPrograms);
    folders += QStringLiteral(QUOR_PROGRAMS_DIR);
    for (const QString& folder : folders) {
        const QFileInfo program(folder + "/quor-plugin-host"_L1);
        if (program.isFile() && program.isExecutable())
            return program.canonicalFilePath();
    }
    return {};
}

/// Starts the program with the socket as standard input. Returns the error.
int spawn(pid_t& process, const QByteArray& program, int socket)
{
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, socket, STDIN_FILENO);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);

    // Neither this process's blocked and ignored signals nor an interrupt at the terminal reach the script.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(
        &attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);

    QByteArray name("quor-plugin-host");
    QByteArray version(scriptProtocol);
    const std::array<char*, 3> arguments{name.data(), version.data(), nullptr};
    const int error
        = posix_spawn(&process, program.constData(), &files, &attributes, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    return error;
}

QByteArray fileContents(const QByteArray& path)
{
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

std::unique_ptr<HostProcess> HostProcess::start(QString& error)
{
    const QString program = programPath();
    if (program.isEmpty()) {
        error = u"A script with limits needs the program quor-plugin-host, which is not installed. "
                "It belongs to the kit, in the folder libexec/quor."_s;
        return nullptr;
    }
    std::array<int, 2> sockets{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets.data()) != 0) {
        error = u"The script's process cannot be connected: "_s + qt_error_string(errno);
        return nullptr;
    }
    FileDescriptor own(sockets[0]);
    const FileDescriptor other(sockets[1]);
    pid_t process = 0;
    if (const int failure = spawn(process, QFile::encodeName(program), other.get())) {
        error = program + u" cannot be started: "_s + qt_error_string(failure);
        return nullptr;
    }
    return std::unique_ptr<HostProcess>(new HostProcess(process, std::move(own)));
}

HostProcess::HostProcess(pid_t process, FileDescriptor socket)
    : process_(process)
    , socket_(std::move(socket))
{
    clock_getcpuclockid(process_, &clock_);
}

HostProcess::~HostProcess()
{
    end();
}

std::chrono::nanoseconds HostProcess::processorTime() const
{
    timespec time{};
    clock_gettime(clock_, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

qint64 HostProcess::memory() const
{
    qint64 kibibytes = 0;
    for (const QByteArray& line : fileContents(procFolder() + "/status").split('\n')) {
        if (line.startsWith("RssAnon:") || line.startsWith("RssShmem:") || line.startsWith("VmSwap:"))
            kibibytes += line.simplified().split(' ').value(1).toLongLong();
    }
    return kibibytes << 10;
}

bool HostProcess::isAsleep() const
{
    const QString tasks = QFile::decodeName(procFolder()) + "/task/"_L1;
    const QStringList threads = QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return !threads.isEmpty() && std::all_of(threads.begin(), threads.end(), [&](const QString& thread) {
        const QByteArray line = fileContents(QFile::encodeName(tasks + thread + "/stat"_L1));
        const QByteArray state = line.mid(line.lastIndexOf(')')); // behind the name, which can be anything
        return state.startsWith(") S") || state.startsWith(") T");
    });
}

int HostProcess::end()
{
    if (std::exchange(hasEnded_, true))
        return status_;
    siginfo_t state{};
    // An application that waits for all its children has freed the number for another process.
    if (waitid(P_PID, static_cast<id_t>(process_), &state, WEXITED | WNOHANG | WNOWAIT) == 0)
        kill(process_, SIGKILL);
    while (waitpid(process_, &status_, 0) < 0 && errno == EINTR) { }
    return status_;
}

QByteArray HostProcess::procFolder() const
{
    return "/proc/" + QByteArray::number(process_);
}

} // namespace quor::toolkit
