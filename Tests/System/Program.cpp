// SPDX-License-Identifier: MIT
#include "System/Program.h"

#include "Support/WaitFor.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace quor::test {

Program::Program(const QString& name, const QStringList& arguments, const Environment& changes)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [variable, value] : changes) {
        if (value.isEmpty())
            environment.remove(variable);
        else
            environment.insert(variable, value);
    }
    process_.setProcessEnvironment(environment);
    process_.start(QStringLiteral(QUOR_PROGRAMS "/") + name, arguments);
    EXPECT_TRUE(process_.waitForStarted()) << qPrintable(name);
}

Program::~Program()
{
    if (!isRunning())
        return;
    process_.terminate();
    if (!ends())
        process_.kill();
    process_.waitForFinished();
}

bool Program::ends(std::chrono::milliseconds limit)
{
    return waitFor([this] { return process_.state() == QProcess::NotRunning; }, limit);
}

int Program::exitCode() const
{
    return process_.exitStatus() == QProcess::CrashExit ? -process_.exitCode() : process_.exitCode();
}

QString Program::output()
{
    output_ += process_.readAllStandardOutput();
    return QString::fromUtf8(output_);
}

QString Program::errors()
{
    errors_ += process_.readAllStandardError();
    return QString::fromUtf8(errors_);
}

long Program::privateMemory() const
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid()));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    static const QRegularExpression anonymous(QStringLiteral("RssAnon:\\s+(\\d+)"));
    return anonymous.match(QString::fromUtf8(status.readAll())).captured(1).toLong();
}

QString peer(const QStringList& arguments, int expectedExit)
{
    Program program(QStringLiteral("quor-peer"), arguments);
    const QString command = arguments.join(u' ');
    EXPECT_TRUE(program.ends()) << "quor-peer " << qPrintable(command);
    EXPECT_EQ(program.exitCode(), expectedExit)
        << "quor-peer " << qPrintable(command) << ": " << qPrintable(program.errors());
    return program.output();
}

} // namespace quor::test
