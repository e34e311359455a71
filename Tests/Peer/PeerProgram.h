// SPDX-License-Identifier: MIT
#pragma once

#include "Support/TemporaryDataHome.h"

#include <QProcess>
#include <QStringList>

namespace quor::test {

struct Result {
    int exitCode;
    QString output; ///< without the closing line feed
    QString errors;
};

/// Runs one command of the built program, its arguments parted by single blanks, to its end.
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

/// The built program, serving on the session's bus, with a data folder of the test's own.
class ServingPeer final {
public:
    ServingPeer() { start(); }
    ~ServingPeer() { kill(); }

    /// Returns once it serves; the output so far is not kept.
    void start()
    {
        process.start(QStringLiteral(QUOR_PEER), {QStringLiteral("serve")});
        while (!process.canReadLine() && process.waitForReadyRead()) { }
        process.readLine();
    }
    /// Without any warning to it.
    void kill()
    {
        process.kill();
        process.waitForFinished();
    }

    const TemporaryDataHome home;
    QProcess process;
};

} // namespace quor::test
