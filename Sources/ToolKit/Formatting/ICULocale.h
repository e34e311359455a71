// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <unicode/locid.h>

#include <cstring>

namespace quor::toolkit {

/// The locale of an identifier; ICU's bogus one, which counts as its default, for what is none. The name of
/// one that is too long for ICU's own buffers would overflow them.
[[nodiscard]] inline icu::Locale icuLocale(const QString& identifier)
{
    auto locale = icu::Locale::createCanonical(identifier.toLatin1().constData());
    if (std::strlen(locale.getName()) >= ULOC_FULLNAME_CAPACITY)
        locale.setToBogus();
    return locale;
}

} // namespace quor::toolkit
