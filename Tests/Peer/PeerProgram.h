// SPDX-License-Identifier: MIT
#pragma once

#include "Support/TemporaryDataHome.h"

#include <QJsonDocument>
#include <QProcess>
#include <QStringList>

#include <memory>

namespace quor::test {

struct Result {
    int exitCode;
    QString output; ///< without the closing line feed
    QString errors;
};

/// Runs one command of the built program to its end.
inline Result quorPeer(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(QUOR_PEER), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, process.errorString()};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()).trimmed(),
        QString::fromUtf8(process.readAllStandardError())};
}

/// The JSON that a command prints.
inline QJsonDocument quorPeerJSON(const QStringList& arguments)
{
    return QJsonDocument::fromJson(
        quorPeer(arguments + QStringList{QStringLiteral("--json")}).output.toUtf8());
}

/// The built program, serving on the session's bus, with a data folder of the test's own.
class ServingPeer final {
public:
    ServingPeer() { start(); }
    ~ServingPeer() { kill(); }
    ServingPeer(const ServingPeer&) = delete;
    ServingPeer& operator=(const ServingPeer&) = delete;

    /// Returns once it serves; the output so far is not kept.
    void start()
    {
        process_.start(QStringLiteral(QUOR_PEER), {QStringLiteral("serve")});
        while (!process_.canReadLine() && process_.waitForReadyRead()) { }
        process_.readLine();
    }
    /// Without any warning to it.
    void kill()
    {
        process_.kill();
        process_.waitForFinished();
    }

    [[nodiscard]] QProcess& process() { return process_; }

    const TemporaryDataHome home;

private:
    QProcess process_;
};

} // namespace quor::test
