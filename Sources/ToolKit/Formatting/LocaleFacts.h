// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

/// Small facts about a locale, which is told by its identifier ("de_AT", "zh_Hant_TW", also "de-AT"), since a
/// `QLocale` always has a region, whether the user named one or not. Stateless; any thread.
namespace quor::toolkit {

/// Language, script and region of `locale`, the default one if none is given; "en_US_POSIX" for the C locale.
/// Where the user's settings ask for another system of measurement than the region's, it is told, too, as in
/// "en_US@measure=metric".
[[nodiscard]] QString localeIdentifier(const QLocale& locale = QLocale());

/// Whether the identifier's "measure" is "metric"; if it has none, false where miles are in use, as in the
/// United States and the United Kingdom, and for an identifier that is none. Without a region, that of most
/// people who speak the language counts.
[[nodiscard]] bool usesMetricSystem(const QString& identifier = localeIdentifier());

/// "en" or "de"; "en" for any other language. What the resources are translated into.
[[nodiscard]] QString languageCodeOrEnglish(const QString& identifier = localeIdentifier());

/// The region's code in capitals, "DE" without a region.
[[nodiscard]] QString countryCodeOrDefault(const QString& identifier = localeIdentifier());

} // namespace quor::toolkit
