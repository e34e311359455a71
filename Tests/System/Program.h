// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>

#include <chrono>

namespace quor::test {

/// A running process of one of the built programs. The destructor ends it.
class Program final {
public:
    /// Changes to the environment; an empty value removes the variable.
    using Environment = QList<std::pair<QString, QString>>;

    /// Starts the program.
    explicit Program(const QString& name, const QStringList& arguments = {}, const Environment& changes = {});
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] bool isRunning() const { return process_.state() == QProcess::Running; }
    /// Runs the event loop until the program has ended. Returns false if it does not end within `limit`.
    [[nodiscard]] bool ends(std::chrono::milliseconds limit = std::chrono::seconds(10));
    /// The exit code, or the negative number of the signal that ended the program.
    [[nodiscard]] int exitCode() const;
    [[nodiscard]] QString output(); ///< The standard output so far.
    [[nodiscard]] QString errors(); ///< The standard error so far.
    [[nodiscard]] qint64 pid() const { return process_.processId(); }
    /// The anonymous memory in kilobytes, as reported by the kernel.
    [[nodiscard]] long privateMemory() const;

private:
    QProcess process_;
    QByteArray output_;
    QByteArray errors_;
};

/// Runs a command of quor-peer to its end and returns its standard output. Adds a failure to the test
/// unless it exits with `expectedExit`.
QString peer(const QStringList& arguments, int expectedExit = 0);

} // namespace quor::test
