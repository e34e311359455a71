// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace quor::peer {

/// Runs the program and returns its exit code. The first of `arguments` is the program's own name. Needs a
/// `QCoreApplication`. A command that calls the serving process waits for the answer.
[[nodiscard]] int runProgram(const QStringList& arguments);

} // namespace quor::peer
