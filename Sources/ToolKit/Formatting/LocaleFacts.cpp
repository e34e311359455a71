// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/LocaleFacts.h"

#include "ToolKit/Formatting/ICULocale.h"

#include <QStringList>

#include <unicode/ulocdata.h>

#include <cstring>
#include <string>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

QString localeIdentifier(const QLocale& locale)
{
    if (locale.language() == QLocale::C)
        return u"en_US_POSIX"_s;
    QStringList parts{QLocale::languageToCode(locale.language()), QLocale::scriptToCode(locale.script()),
        QLocale::territoryToCode(locale.territory())};
    parts.removeAll(QString());
    QString identifier = parts.join(u'_');
    // Set by LC_MEASUREMENT.
    const auto system = locale.measurementSystem();
    if (system == QLocale(locale.language(), locale.script(), locale.territory()).measurementSystem())
        return identifier;
    identifier += system == QLocale::MetricSystem ? "@measure=metric"_L1 : "@measure=ussystem"_L1;
    return identifier;
}

bool usesMetricSystem(const QString& identifier)
{
    const icu::Locale locale = icuLocale(identifier);
    // For these, ICU would answer for its own default.
    if (locale.isBogus() || std::strlen(locale.getName()) == 0)
        return false;
    UErrorCode status = U_ZERO_ERROR;
    const auto chosen = locale.getKeywordValue<std::string>("measure", status);
    if (U_SUCCESS(status) && !chosen.empty())
        return chosen == "metric";
    status = U_ZERO_ERROR;
    const auto system = ulocdata_getMeasurementSystem(locale.getName(), &status);
    return U_SUCCESS(status) && system == UMS_SI;
}

QString languageCodeOrEnglish(const QString& identifier)
{
    const auto language = QString::fromLatin1(icuLocale(identifier).getLanguage());
    return language == "de"_L1 ? language : u"en"_s;
}

QString countryCodeOrDefault(const QString& identifier)
{
    const auto country = QString::fromLatin1(icuLocale(identifier).getCountry());
    return country.isEmpty() ? u"DE"_s : country;
}

} // namespace quor::toolkit
