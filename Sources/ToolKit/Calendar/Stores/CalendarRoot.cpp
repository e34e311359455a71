// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/CalendarRoot.h"

#include "Platform/Preferences/DataHome.h"

#include <QFile>

namespace quor::toolkit {

QByteArray calendarRoot(const EventStoreOptions& options)
{
    if (options.root)
        return QFile::encodeName(*options.root);
    const auto home = platform::dataHome();
    return home ? *home + "/calendars" : QByteArray();
}

} // namespace quor::toolkit
