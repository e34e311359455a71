// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <memory>

namespace quor::formkit {

/// The desktop's dictionaries of some languages, and the word lists of the user that belong to them.
///
/// Making an object loads the dictionaries, which can take a tenth of a second. A word whose script is not
/// that of a dictionary counts as correct; without a dictionary, all do. Use an object on one thread at a
/// time.
class SpellingDictionaries final {
public:
    /// `languages` are names of locales, as "de_AT". Those without a dictionary are ignored.
    explicit SpellingDictionaries(const QStringList& languages);
    ~SpellingDictionaries();
    SpellingDictionaries(const SpellingDictionaries&) = delete;
    SpellingDictionaries& operator=(const SpellingDictionaries&) = delete;

    /// Whether a dictionary has `word`.
    [[nodiscard]] bool isCorrect(const QString& word) const;
    /// Words that the writer of `word` may have meant, the most probable first. Can take a tenth of a second.
    [[nodiscard]] QStringList suggestions(const QString& word) const;
    /// Adds `word` to the user's word list of the first language that has the script of `word`. Other
    /// programs of the user share it.
    void add(const QString& word);

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace quor::formkit
