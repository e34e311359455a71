// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QCommandLineParser;

namespace quor::peer {

/// Runs as the main application, until the user quits it in the helper's menu or the connection to the bus is
/// lost. Prints a line when it is ready, and a line for each request that an application with windows would
/// show on the screen. Returns the exit code.
int serve(const QCommandLineParser& options, const QStringList& operands);

} // namespace quor::peer
