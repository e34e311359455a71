// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QCommandLineParser;

namespace quor::peer {

/// The commands that call the serving process. Each prints its result to standard output, or an error to
/// standard error, and returns the exit code.

int addTasks(const QCommandLineParser& options, const QStringList& operands);
int listTasks(const QCommandLineParser& options, const QStringList& operands);
int startTimer(const QCommandLineParser& options, const QStringList& operands);
int stopTimer(const QCommandLineParser& options, const QStringList& operands);
int printStatus(const QCommandLineParser& options, const QStringList& operands);
int changeSettings(const QCommandLineParser& options, const QStringList& operands);
int openMenu(const QCommandLineParser& options, const QStringList& operands);
int killHelper(const QCommandLineParser& options, const QStringList& operands);

} // namespace quor::peer
