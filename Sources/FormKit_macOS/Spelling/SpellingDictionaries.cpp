// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Spelling/SpellingDictionaries.h"

#include <QLocale>

#include <enchant.h>

#include <algorithm>
#include <vector>

namespace quor::formkit {

namespace {

/// The script of the first letter.
QChar::Script scriptOf(QStringView text)
{
    for (const char32_t character : text.toUcs4()) {
        const auto script = QChar::script(character);
        if (script != QChar::Script_Common && script != QChar::Script_Inherited)
            return script;
    }
    return QChar::Script_Unknown;
}

struct Dictionary {
    EnchantDict* handle;
    QChar::Script script;

    [[nodiscard]] bool has(QString word) const
    {
        const auto accepts = [this](const QByteArray& text) {
            return enchant_dict_check(handle, text.constData(), text.size()) <= 0; // negative: an error
        };
        // Many dictionaries know only the apostrophe of the keyboard.
        return accepts(word.toUtf8())
            || (word.contains(u'\u2019') && accepts(word.replace(u'\u2019', u'\'').toUtf8()));
    }
};

} // namespace

struct SpellingDictionaries::Private {
    EnchantBroker* broker = enchant_broker_init();
    std::vector<Dictionary> dictionaries;

    [[nodiscard]] std::vector<Dictionary> dictionariesFor(const QString& word) const
    {
        std::vector<Dictionary> fitting;
        std::copy_if(dictionaries.begin(), dictionaries.end(), std::back_inserter(fitting),
            [script = scriptOf(word)](const Dictionary& dictionary) { return dictionary.script == script; });
        return fitting;
    }
};

SpellingDictionaries::SpellingDictionaries(const QStringList& languages)
    : d_(std::make_unique<Private>())
{
    for (const QString& language : languages) {
        // The language's own name is in its script.
        const auto script = scriptOf(QLocale(language).nativeLanguageName());
        if (auto* const handle = enchant_broker_request_dict(d_->broker, language.toUtf8().constData()))
            d_->dictionaries.push_back({handle, script});
    }
}

SpellingDictionaries::~SpellingDictionaries()
{
    for (const Dictionary& dictionary : d_->dictionaries)
        enchant_broker_free_dict(d_->broker, dictionary.handle);
    enchant_broker_free(d_->broker);
}

bool SpellingDictionaries::isCorrect(const QString& word) const
{
    const auto dictionaries = d_->dictionariesFor(word);
    return dictionaries.empty()
        || std::any_of(dictionaries.begin(), dictionaries.end(),
            [&](const Dictionary& dictionary) { return dictionary.has(word); });
}

QStringList SpellingDictionaries::suggestions(const QString& word) const
{
    QStringList suggestions;
    const QByteArray text = word.toUtf8();
    for (const Dictionary& dictionary : d_->dictionariesFor(word)) {
        std::size_t count = 0;
        char** const list = enchant_dict_suggest(dictionary.handle, text.constData(), text.size(), &count);
        for (std::size_t i = 0; i < count; ++i)
            suggestions += QString::fromUtf8(list[i]);
        if (list)
            enchant_dict_free_string_list(dictionary.handle, list);
    }
    return suggestions;
}

void SpellingDictionaries::add(const QString& word)
{
    const QByteArray text = word.toUtf8();
    if (const auto dictionaries = d_->dictionariesFor(word); !dictionaries.empty())
        enchant_dict_add(dictionaries.front().handle, text.constData(), text.size());
}

} // namespace quor::formkit
