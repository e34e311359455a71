// SPDX-License-Identifier: MIT
#include "FormGallery/Texts.h"

using namespace Qt::StringLiterals;

namespace quor::gallery {

const platform::Bundle& resources()
{
    static const platform::Bundle bundle = platform::Bundle::required(u"QuorFormGallery"_s);
    return bundle;
}

QString text(const QString& key)
{
    return resources().localizedString(key);
}

} // namespace quor::gallery
