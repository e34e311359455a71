// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

/// Facts about a locale, given by its identifier ("de_AT", "zh_Hant_TW", also "de-AT"). A `QLocale` would not
/// do, since it always has a region, even if the user chose none. Any thread.
namespace quor::toolkit {

/// The identifier of `locale`: its language, script and region; "en_US_POSIX" for the C locale. If the user's
/// settings choose another system of measurement than the region's, the identifier names it, as in
/// "en_US@measure=metric".
[[nodiscard]] QString localeIdentifier(const QLocale& locale = QLocale());

/// Whether the identifier's "measure" is "metric". If it has no "measure": false for regions that use miles,
/// as the United States and the United Kingdom do, and for an identifier that is malformed. If the region is
/// missing, the region with the most speakers of the language decides.
[[nodiscard]] bool usesMetricSystem(const QString& identifier = localeIdentifier());

/// The language if the resources have it, which are in "en" and "de"; else "en".
[[nodiscard]] QString languageCodeOrEnglish(const QString& identifier = localeIdentifier());

/// The region's code in capitals, "DE" if the identifier has no region.
[[nodiscard]] QString countryCodeOrDefault(const QString& identifier = localeIdentifier());

} // namespace quor::toolkit
