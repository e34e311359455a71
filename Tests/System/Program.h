// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>

#include <chrono>

namespace quor::test {

/// One of the built programs, running. Ended with this object.
class Program final {
public:
    using Environment = QList<std::pair<QString, QString>>; ///< an empty value unsets

    explicit Program(const QString& name, const QStringList& arguments = {}, const Environment& changes = {});
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] bool isRunning() const { return process_.state() == QProcess::Running; }
    /// Turns the event loop until the program has ended; false if it does not.
    [[nodiscard]] bool ends(std::chrono::milliseconds limit = std::chrono::seconds(10));
    /// The exit code, or minus the signal that ended it.
    [[nodiscard]] int exitCode() const;
    /// What the program has written so far.
    [[nodiscard]] QString output();
    [[nodiscard]] QString errors();
    [[nodiscard]] qint64 pid() const { return process_.processId(); }
    /// Anonymous memory in kilobytes, as the kernel counts it.
    [[nodiscard]] long privateMemory() const;

private:
    QProcess process_;
    QByteArray output_;
    QByteArray errors_;
};

/// Runs a command of quor-peer to its end and returns what it printed; adds a failure to the test
/// unless it exits with `expectedExit`.
QString peer(const QStringList& arguments, int expectedExit = 0);

} // namespace quor::test
