// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QLatin1StringView>
#include <QList>
#include <QStringList>

#include <vector>

namespace quor::peer {

/// One command of the program, as the user sees it and as it is run. The program parses and checks
/// the options and the number of operands before it runs it.
struct Command {
    QLatin1StringView name;
    QLatin1StringView operands; ///< as the help names them, behind the name
    qsizetype fewestOperands = 0;
    qsizetype mostOperands = 0;
    QLatin1StringView summary;
    QString details; ///< further lines of its help
    QList<QCommandLineOption> options;
    int (*run)(const QCommandLineParser& options, const QStringList& operands) = nullptr;
};

/// All commands, in the order of the help.
[[nodiscard]] const std::vector<Command>& commands();

} // namespace quor::peer
