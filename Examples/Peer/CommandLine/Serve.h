// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QCommandLineParser;

namespace quor::peer {

/// Is the main application: runs the event loop until the helper's user quits it or the bus goes.
/// Prints a line once it is ready, and one for each thing that a main application with windows would
/// show on its own.
int serve(const QCommandLineParser& options, const QStringList& operands);

} // namespace quor::peer
