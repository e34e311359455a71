// SPDX-License-Identifier: MIT
#pragma once

#include "Support/TemporaryDataHome.h"

#include <QProcess>
#include <QStringList>

namespace quor::test {

struct Result {
    int exitCode;
    QString output; ///< Without the line feed at the end.
    QString errors;
};

/// Runs one command of the built program and waits for its end. Single blanks separate the arguments.
inline Result quorPeer(const QString& command, const QStringList& environment = {})
{
    QProcess process;
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.start(QStringLiteral(QUOR_PEER), command.split(u' '));
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, process.errorString()};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()).trimmed(),
        QString::fromUtf8(process.readAllStandardError())};
}

/// The built program as the main application on the session bus, with a data folder for this test.
class ServingPeer final {
public:
    ServingPeer() { start(); }
    ~ServingPeer() { kill(); }

    /// Returns when it serves. Drops the output until then.
    void start()
    {
        process.start(QStringLiteral(QUOR_PEER), {QStringLiteral("serve")});
        while (!process.canReadLine() && process.waitForReadyRead()) { }
        process.readLine();
    }
    /// Ends it by SIGKILL.
    void kill()
    {
        process.kill();
        process.waitForFinished();
    }

    const TemporaryDataHome home;
    QProcess process;
};

} // namespace quor::test
