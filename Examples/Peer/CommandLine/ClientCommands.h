// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QCommandLineParser;

namespace quor::peer {

/// The commands that ask the serving process. Each prints its result, or the reason why there is none,
/// and returns the exit code.

int addTasks(const QCommandLineParser& options, const QStringList& operands);
int listTasks(const QCommandLineParser& options, const QStringList& operands);
int startTimer(const QCommandLineParser& options, const QStringList& operands);
int stopTimer(const QCommandLineParser& options, const QStringList& operands);
int printStatus(const QCommandLineParser& options, const QStringList& operands);
int changeSettings(const QCommandLineParser& options, const QStringList& operands);
int openMenu(const QCommandLineParser& options, const QStringList& operands);
int killHelper(const QCommandLineParser& options, const QStringList& operands);

} // namespace quor::peer
