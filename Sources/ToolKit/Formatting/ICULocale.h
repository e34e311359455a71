// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <unicode/locid.h>

#include <cstring>

namespace quor::toolkit {

/// The locale of an identifier. Returns ICU's "bogus" locale, which ICU treats as its default, for an
/// identifier that is malformed, and for one that is too long for ICU's own buffers.
[[nodiscard]] inline icu::Locale icuLocale(const QString& identifier)
{
    auto locale = icu::Locale::createCanonical(identifier.toLatin1().constData());
    if (std::strlen(locale.getName()) >= ULOC_FULLNAME_CAPACITY)
        locale.setToBogus();
    return locale;
}

} // namespace quor::toolkit
