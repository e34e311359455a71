// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/EventProtocol.h"

#include <QCoreApplication>
#include <QThread>

namespace quor::toolkit {

bool isMainThread()
{
    const auto* application = QCoreApplication::instance();
    return !application || application->thread() == QThread::currentThread();
}

} // namespace quor::toolkit
