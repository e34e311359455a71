// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::peer {

/// The exit codes of the program.
enum ExitCode : int {
    succeeded = 0,
    failed = 1, ///< the command could not be carried out
    misused = 2, ///< the command line was wrong
};

/// Writes a line to standard output and flushes it.
void print(const QString& line);

/// Writes "quor-peer: " and the message to standard error.
void printError(const QString& message);

} // namespace quor::peer
