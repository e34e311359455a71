// SPDX-License-Identifier: MIT
#include "Peer/CommandLine/Program.h"
#include "Peer/Service/PeerService.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    // Names the defaults that stand in where the shared suite cannot be opened.
    QCoreApplication::setApplicationName(quor::peer::PeerService::serviceName);
    return quor::peer::runProgram(QCoreApplication::arguments());
}
