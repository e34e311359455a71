// SPDX-License-Identifier: MIT
#include "ToolKit/Identity/OSVersion.h"

#include "ToolKit/Identity/EnvironmentFile.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quor::toolkit::OSVersion {

QString productVersion(const QStringList& files)
{
    for (const QString& file : files) {
        const QFileInfo info(file);
        if (info.isFile() && info.isReadable())
            return valueInEnvironmentFile(file, u"VERSION_ID"_s).value_or(u"None"_s);
    }
    return u"None"_s;
}

} // namespace quor::toolkit::OSVersion
