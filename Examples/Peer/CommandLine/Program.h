// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace quor::peer {

/// Runs the program for its arguments, the program's own name first, and returns its exit code.
/// Needs a QCoreApplication. A command that asks the serving process waits for its answer.
[[nodiscard]] int runProgram(const QStringList& arguments);

} // namespace quor::peer
