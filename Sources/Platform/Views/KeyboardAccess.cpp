// SPDX-License-Identifier: MIT
#include "Platform/Views/KeyboardAccess.h"

#include <QCoreApplication>
#include <QVariant>

namespace quor::platform {

namespace {
constexpr auto propertyName = "quorFullKeyboardAccess";
}

bool isFullKeyboardAccessEnabled()
{
    const QVariant enabled = QCoreApplication::instance()->property(propertyName);
    return !enabled.isValid() || enabled.toBool();
}

void setFullKeyboardAccessEnabled(bool enabled)
{
    QCoreApplication::instance()->setProperty(propertyName, enabled);
}

} // namespace quor::platform
