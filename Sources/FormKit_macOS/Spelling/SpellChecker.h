// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <memory>

namespace quor::formkit {

class SpellingDictionaries;

/// Knows which words are misspelled, without ever making its user wait: words are looked up on a thread of
/// the checker's own, and answers are kept. The dictionaries are loaded with the first word. Main thread
/// only.
class SpellChecker final : public QObject {
    Q_OBJECT

public:
    /// Returns the checker for the languages that the user prefers, those of the default locale. All callers
    /// share it as long as one of them holds it, since dictionaries are large.
    [[nodiscard]] static std::shared_ptr<SpellChecker> forUser();

    /// `languages` are names of locales, as "de_AT". A word is correct if it is so in one of them. Without a
    /// dictionary for any of them, no word is misspelled.
    explicit SpellChecker(QStringList languages);
    ~SpellChecker() override;

    [[nodiscard]] const QStringList& languages() const { return languages_; }

    /// Whether `word` is known to be misspelled. The first call for a word returns false and has the word
    /// looked up.
    [[nodiscard]] bool isMisspelled(const QString& word);
    /// Words that the writer of `word` may have meant, the most probable first. Can take a tenth of a second.
    [[nodiscard]] QStringList suggestions(const QString& word);
    /// Adds `word` to the user's own word list, which other programs share.
    void learn(const QString& word);

Q_SIGNALS:
    /// `isMisspelled` may answer otherwise than before.
    void answersChanged();

private:
    enum class Answer { pending, correct, misspelled };

    void lookUp();
    void take(const QStringList& words, const QList<bool>& areCorrect);
    /// Loads them at the first call. Only for the blocks of `queue_`.
    [[nodiscard]] SpellingDictionaries& dictionaries();

    const QStringList languages_;
    QHash<QString, Answer> answers_;
    QStringList pending_; ///< words for the next turn of the event loop
    std::unique_ptr<SpellingDictionaries> dictionaries_;
    platform::DispatchQueue queue_{"spelling"}; ///< the last field: its end waits for the blocks
};

} // namespace quor::formkit
