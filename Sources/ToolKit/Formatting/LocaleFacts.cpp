// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/LocaleFacts.h"

#include <QStringList>

#include <unicode/locid.h>
#include <unicode/ulocdata.h>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

icu::Locale localeOf(const QString& identifier)
{
    return icu::Locale::createCanonical(identifier.toLatin1().constData());
}

} // namespace

QString localeIdentifier(const QLocale& locale)
{
    if (locale.language() == QLocale::C)
        return u"en_US_POSIX"_s;
    QStringList parts{QLocale::languageToCode(locale.language()), QLocale::scriptToCode(locale.script()),
        QLocale::territoryToCode(locale.territory())};
    parts.removeAll(QString());
    return parts.join(u'_');
}

bool usesMetricSystem(const QString& identifier)
{
    const icu::Locale locale = localeOf(identifier);
    UErrorCode status = U_ZERO_ERROR;
    // ICU answers for its own default where it is asked about none.
    if (locale.isBogus() || identifier.isEmpty())
        return false;
    const auto system = ulocdata_getMeasurementSystem(locale.getName(), &status);
    return U_SUCCESS(status) && system == UMS_SI;
}

QString languageCodeOrEnglish(const QString& identifier)
{
    const auto language = QString::fromLatin1(localeOf(identifier).getLanguage());
    return language == "de"_L1 ? language : u"en"_s;
}

QString countryCodeOrDefault(const QString& identifier)
{
    const auto country = QString::fromLatin1(localeOf(identifier).getCountry());
    return country.isEmpty() ? u"DE"_s : country;
}

} // namespace quor::toolkit
