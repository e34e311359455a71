// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::peer {

/// How a command ends.
enum ExitCode : int {
    succeeded = 0,
    failed = 1, ///< could not be done
    misused = 2, ///< not understood
};

/// Writes a line to standard output, at once.
void print(const QString& line);

/// Writes "quor-peer: " and the message to standard error.
void printError(const QString& message);

} // namespace quor::peer
