// SPDX-License-Identifier: MIT
#include "FormKit/FormResource.h"

namespace quor::formkit {

const platform::Bundle& FormResource::resourceBundle()
{
    static const auto bundle = platform::Bundle::required(QStringLiteral("Cabinet_FormKit"));
    return bundle;
}

QString FormResource::localizedString(const QString& key)
{
    return resourceBundle().localizedString(key);
}

} // namespace quor::formkit
