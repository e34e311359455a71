// SPDX-License-Identifier: MIT
#include "Platform/Calendar/UserDateLocale.h"

namespace quor::platform {

QLocale userDateLocale()
{
    const QLocale user;
    if (user != QLocale::system())
        return user;
    for (const char* const variable : {"LC_ALL", "LC_TIME"}) {
        const QByteArray name = qgetenv(variable);
        if (!name.isEmpty())
            return QLocale(QString::fromLocal8Bit(name));
    }
    return user;
}

} // namespace quor::platform
