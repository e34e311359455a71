// SPDX-License-Identifier: MIT
#include "Platform/Linux/QtApplication.h"

#include <QCoreApplication>
#include <QWidget>

namespace quor::platform {

void QtApplication::terminate()
{
    // Not quit(), which asks each window and so could be refused.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

void QtApplication::activate(QWidget& window)
{
    window.activateWindow();
}

} // namespace quor::platform
