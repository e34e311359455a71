// SPDX-License-Identifier: MIT
#include "FormKit_macOS/FormMacOSResource.h"

namespace quor::formkit {

const platform::Bundle& FormMacOSResource::resourceBundle()
{
    static const auto bundle = platform::Bundle::required(QStringLiteral("Cabinet_FormKit_macOS"));
    return bundle;
}

QString FormMacOSResource::localizedString(const QString& key)
{
    return resourceBundle().localizedString(key);
}

} // namespace quor::formkit
