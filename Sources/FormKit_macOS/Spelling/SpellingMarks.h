// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QObject>
#include <QTextBlock>
#include <QTextCursor>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

class QMenu;
class QPainter;

namespace quor::formkit {

class PlainTextView;
class SpellChecker;

/// Draws wavy lines below the misspelled words of a text view, and offers corrections in its context menu.
///
/// Only the words that are in sight are checked, so the length of the text does not matter. The word that the
/// user types gets its line when the caret leaves it. The lines are no part of the document: they are not
/// undone, and do not count as a change of the text. Main thread only.
class SpellingMarks final : public QObject {
    Q_OBJECT

public:
    /// Of `view`, which becomes the parent.
    explicit SpellingMarks(PlainTextView& view);
    ~SpellingMarks() override;

    [[nodiscard]] bool isEnabled() const { return isEnabled_; }
    /// True at first.
    void setEnabled(bool enabled);

    /// The words with lines, selected, in the order of the text.
    [[nodiscard]] const std::vector<QTextCursor>& marks() const { return marks_; }

    /// Paints the lines that are in `area`, in coordinates of the view's viewport.
    void paint(QPainter& painter, const QRect& area) const;

    /// Puts the suggestions for the word at `place`, and what adds it to the dictionary, before the other
    /// entries of `menu`. Has no effect if the word has no line.
    void addActions(QMenu& menu, const QTextCursor& place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void noteEdit();
    void refresh();
    /// In the part of the text that is in sight; ranges of the document.
    [[nodiscard]] std::vector<platform::TextRange> misspelledWords();
    /// The same, in one block, for the words that begin or end between two places in it.
    void appendMisspelled(
        const QTextBlock& block, int from, int to, std::vector<platform::TextRange>& misspelled);
    /// Whether the user is typing `word`, a range of the document.
    [[nodiscard]] bool isBeingTyped(platform::TextRange word) const;
    void show(const std::vector<platform::TextRange>& words);

    PlainTextView& view_;
    bool isEnabled_ = true;
    std::shared_ptr<SpellChecker> checker_; ///< null until there is a text to check
    std::vector<QTextCursor> marks_;
    QTextCursor typed_; ///< where the user has typed, until the caret leaves the word; else null
    QTimer refreshes_; ///< one for all events of a turn of the event loop
};

} // namespace quor::formkit
