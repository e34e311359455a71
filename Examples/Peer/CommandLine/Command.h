// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QLatin1StringView>
#include <QList>
#include <QStringList>

#include <vector>

namespace quor::peer {

/// One command of the program: its help, its options and its function. The program checks the options and the
/// number of operands before it calls `run`.
struct Command {
    QLatin1StringView name;
    QLatin1StringView operands; ///< as the help shows them after the name
    qsizetype fewestOperands = 0;
    qsizetype mostOperands = 0;
    QLatin1StringView summary;
    QString details; ///< more lines for the help of this command
    QList<QCommandLineOption> options;
    int (*run)(const QCommandLineParser& options, const QStringList& operands) = nullptr;
};

/// All commands, in the order of the help.
[[nodiscard]] const std::vector<Command>& commands();

} // namespace quor::peer
