// SPDX-License-Identifier: MIT
#include "Platform/Resources/LocalizedTexts.h"

#include "Platform/Text/ICUText.h"

#include <QFile>
#include <QJsonDocument>
#include <QStringList>

#include <unicode/msgfmt.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

// Adds "de-Latn-CH", then "de-Latn", then "de".
void addWithParents(QStringList& languages, QString language)
{
    while (!language.isEmpty()) {
        if (!languages.contains(language))
            languages += language;
        language.truncate(std::max<qsizetype>(language.lastIndexOf(u'-'), 0));
    }
}

icu::Formattable formattable(const Bundle::Argument& argument)
{
    if (const auto* integer = std::get_if<qint64>(&argument))
        return {static_cast<int64_t>(*integer)};
    if (const auto* real = std::get_if<double>(&argument))
        return {*real};
    return {icuText(std::get<QString>(argument))};
}

// The user's locale has the rules of a region, so it is preferred if it is of the text's language.
icu::Locale localeFor(const QString& language)
{
    const QString user = QLocale().bcp47Name();
    const bool isUsers = user.section(u'-', 0, 0) == language.section(u'-', 0, 0);
    return {qPrintable(isUsers ? user : language)};
}

} // namespace

QJsonObject readJsonObject(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

LocalizedTexts::LocalizedTexts(QString folder)
    : folder_(std::move(folder))
{
}

LocalizedTexts::Text LocalizedTexts::text(const QString& key)
{
    followLocale();
    for (const auto& language : std::as_const(languages_)) {
        const Table& texts = table(language);
        if (const auto found = texts.constFind(key); found != texts.constEnd())
            return {*found, language};
    }
    return {key, {}};
}

void LocalizedTexts::followLocale()
{
    const QLocale locale;
    if (locale_ == locale)
        return;
    locale_ = locale;
    languages_.clear();
    for (const auto& language : locale.uiLanguages())
        addWithParents(languages_, language);
    addWithParents(languages_, u"en"_s);
}

const LocalizedTexts::Table& LocalizedTexts::table(const QString& language)
{
    const auto known = tables_.constFind(language);
    if (known != tables_.constEnd())
        return *known;
    Table texts;
    if (!folder_.isEmpty()) {
        const auto entries = readJsonObject(folder_ + u'/' + language + ".lproj/Localizable.json"_L1);
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            if (entry->isString())
                texts.insert(entry.key(), entry->toString());
        }
    }
    return *tables_.insert(language, texts);
}

QString formatMessage(const LocalizedTexts::Text& text, const std::vector<Bundle::Argument>& arguments)
{
    if (text.language.isEmpty())
        return text.string;
    std::vector<icu::Formattable> values;
    values.reserve(arguments.size());
    for (const auto& argument : arguments)
        values.push_back(formattable(argument));
    UErrorCode status = U_ZERO_ERROR;
    const icu::MessageFormat message(icuText(text.string), localeFor(text.language), status);
    icu::UnicodeString filled;
    icu::FieldPosition ignored;
    message.format(values.data(), static_cast<int32_t>(values.size()), filled, ignored, status);
    if (U_FAILURE(status))
        return text.string;
    return qtText(filled);
}

} // namespace quor::platform
