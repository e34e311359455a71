// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Spelling/SpellChecker.h"

#include "FormKit_macOS/Spelling/SpellingDictionaries.h"
#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QLocale>

#include <utility>

namespace quor::formkit {

namespace {

/// One name for each language: "en_US" for "en-US", "en-Latn-US" and "en", under which word lists of the user
/// are shared between programs.
QStringList preferredLanguages()
{
    QStringList names;
    QList<QLocale::Language> languages;
    for (const QString& name : QLocale().uiLanguages()) {
        const QLocale locale(name);
        if (locale.language() == QLocale::C || languages.contains(locale.language()))
            continue;
        languages += locale.language();
        names += locale.name();
    }
    return names;
}

} // namespace

std::shared_ptr<SpellChecker> SpellChecker::forUser()
{
    static std::weak_ptr<SpellChecker> shared;
    const QStringList languages = preferredLanguages();
    auto checker = shared.lock();
    if (!checker || checker->languages() != languages) {
        checker = std::make_shared<SpellChecker>(languages);
        shared = checker;
    }
    return checker;
}

SpellChecker::SpellChecker(QStringList languages)
    : languages_(std::move(languages))
{
}

SpellChecker::~SpellChecker() = default;

SpellingDictionaries& SpellChecker::dictionaries()
{
    if (!dictionaries_)
        dictionaries_ = std::make_unique<SpellingDictionaries>(languages_);
    return *dictionaries_;
}

bool SpellChecker::isMisspelled(const QString& word)
{
    if (const auto known = answers_.constFind(word); known != answers_.cend())
        return *known == Answer::misspelled;
    constexpr qsizetype keptAnswers = 50'000;
    if (answers_.size() >= keptAnswers)
        answers_.clear();
    answers_[word] = Answer::pending;
    if (pending_.isEmpty())
        platform::MainQueue::async(platform::whileAlive(*this, [this] { lookUp(); }));
    pending_ += word;
    return false;
}

void SpellChecker::lookUp()
{
    auto take = platform::whileAlive(*this,
        [this](const QStringList& words, const QList<bool>& areCorrect) { this->take(words, areCorrect); });
    queue_.async([this, words = std::exchange(pending_, {}), take = std::move(take)] {
        QList<bool> areCorrect;
        for (const QString& word : words)
            areCorrect += dictionaries().isCorrect(word);
        platform::MainQueue::async([words, areCorrect, take]() mutable { take(words, areCorrect); });
    });
}

void SpellChecker::take(const QStringList& words, const QList<bool>& areCorrect)
{
    bool changes = false;
    for (qsizetype i = 0; i < words.size(); ++i) {
        Answer& answer = answers_[words[i]];
        if (answer != Answer::pending)
            continue; // learnt in the meantime
        answer = areCorrect[i] ? Answer::correct : Answer::misspelled;
        changes = changes || !areCorrect[i];
    }
    if (changes)
        Q_EMIT answersChanged();
}

QStringList SpellChecker::suggestions(const QString& word)
{
    return queue_.sync([&] { return dictionaries().suggestions(word); });
}

void SpellChecker::learn(const QString& word)
{
    answers_[word] = Answer::correct;
    queue_.async([this, word] { dictionaries().add(word); });
    Q_EMIT answersChanged();
}

} // namespace quor::formkit
