// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Spelling/SpellingMarks.h"

#include "FormKit_macOS/Controls/PlainTextView.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "FormKit_macOS/Spelling/SpellChecker.h"
#include "FormKit_macOS/Spelling/SpelledWords.h"

#include <QEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using quor::platform::TextRange;

namespace quor::formkit {

namespace {

QTextCharFormat lineFormat(const QPalette& palette)
{
    constexpr int dark = 128;
    const bool isDark = palette.color(QPalette::Base).lightness() < dark;
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(isDark ? QColor(0xff7b72) : QColor(0xd1242f));
    return format;
}

bool contains(TextRange range, int place)
{
    return range.location <= place && place <= range.end();
}

} // namespace

SpellingMarks::SpellingMarks(PlainTextView& view)
    : QObject(&view)
    , view_(view)
{
    refreshes_.setSingleShot(true);
    refreshes_.setInterval(0);
    connect(&refreshes_, &QTimer::timeout, this, &SpellingMarks::refresh);
    const auto refreshLater = [this] { refreshes_.start(); };
    connect(&view, &PlainTextView::edited, this, &SpellingMarks::noteEdit);
    connect(&view, &QPlainTextEdit::textChanged, this, refreshLater);
    connect(&view, &QPlainTextEdit::cursorPositionChanged, this, refreshLater);
    connect(view.verticalScrollBar(), &QScrollBar::valueChanged, this, refreshLater);
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
}

SpellingMarks::~SpellingMarks() = default;

void SpellingMarks::setEnabled(bool enabled)
{
    isEnabled_ = enabled;
    refreshes_.start();
}

bool SpellingMarks::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::EnabledChange:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::PaletteChange:
    case QEvent::Resize:
    case QEvent::Show:
        refreshes_.start();
        break;
    default:
        break;
    }
    return false;
}

void SpellingMarks::noteEdit()
{
    typed_ = view_.textCursor();
}

bool SpellingMarks::isBeingTyped(TextRange word) const
{
    return !typed_.isNull() && contains(word, typed_.position())
        && contains(word, view_.textCursor().position());
}

void SpellingMarks::refresh()
{
    if (!view_.hasFocus() || !view_.isEdited())
        typed_ = {};
    show(isEnabled_ && view_.isEnabled() && view_.isVisible() ? misspelledWords() : std::vector<TextRange>());
}

std::vector<TextRange> SpellingMarks::misspelledWords()
{
    if (view_.document()->isEmpty())
        return {};
    if (!checker_) {
        checker_ = SpellChecker::forUser();
        connect(checker_.get(), &SpellChecker::answersChanged, &refreshes_, qOverload<>(&QTimer::start));
    }
    QTextCursor first = view_.cursorForPosition({0, 0});
    first.movePosition(QTextCursor::StartOfLine);
    QTextCursor last = view_.cursorForPosition(view_.viewport()->rect().bottomRight());
    last.movePosition(QTextCursor::EndOfLine);
    std::vector<TextRange> misspelled;
    for (QTextBlock block = first.block(); block.isValid() && block.position() <= last.position();
         block = block.next()) {
        const int from = std::max(first.position() - block.position(), 0);
        const int to = std::min(last.position() - block.position(), block.length() - 1);
        appendMisspelled(block, from, to, misspelled);
    }
    return misspelled;
}

void SpellingMarks::appendMisspelled(
    const QTextBlock& block, int from, int to, std::vector<TextRange>& misspelled)
{
    // More than is in sight, so that the first and the last word are whole.
    constexpr int margin = 2 * int(longestSpelledWord);
    const int start = std::max(from - margin, 0);
    const QString text = block.text();
    const QStringView part = QStringView(text).mid(start, to + margin - start);
    bool leavesTyped
        = contains({block.position(), block.length() - 1}, typed_.isNull() ? -1 : typed_.position());
    const QTextLayout& layout = *block.layout();
    // Qt draws the lines as if what is being composed were no part of the block.
    const bool isComposing = !layout.preeditAreaText().isEmpty();
    for (TextRange word : spelledWords(part)) {
        word.location += start;
        if (word.end() < from || word.location > to
            || (isComposing && word.end() >= layout.preeditAreaPosition()))
            continue;
        const TextRange place{block.position() + word.location, word.length};
        if (isBeingTyped(place))
            leavesTyped = false;
        else if (checker_->isMisspelled(text.mid(word.location, word.length)))
            misspelled.push_back(place);
    }
    if (leavesTyped)
        typed_ = {};
}

void SpellingMarks::show(const std::vector<TextRange>& words)
{
    const QTextCharFormat format = lineFormat(view_.palette());
    const auto shown = view_.extraSelections();
    const auto isShown = [&](const QTextEdit::ExtraSelection& selection, TextRange word) {
        return selection.cursor.selectionStart() == word.location
            && selection.cursor.selectionEnd() == word.end() && selection.format == format;
    };
    if (std::equal(shown.begin(), shown.end(), words.begin(), words.end(), isShown))
        return;
    QList<QTextEdit::ExtraSelection> selections;
    for (const TextRange word : words) {
        QTextCursor cursor(view_.document());
        cursor.setPosition(int(word.location));
        cursor.setPosition(int(word.end()), QTextCursor::KeepAnchor);
        selections += {cursor, format};
    }
    view_.setExtraSelections(selections);
}

void SpellingMarks::addActions(QMenu& menu, const QTextCursor& place)
{
    const auto marks = view_.extraSelections();
    const auto mark
        = std::find_if(marks.begin(), marks.end(), [&](const QTextEdit::ExtraSelection& selection) {
              const auto& cursor = selection.cursor;
              return contains({cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()},
                  place.position());
          });
    if (mark == marks.end() || !checker_)
        return;
    const QString word = mark->cursor.selectedText();
    QAction* const before = menu.actions().value(0);
    const auto add = [&](const QString& title) {
        auto* const action = new QAction(title, &menu);
        menu.insertAction(before, action);
        return action;
    };
    constexpr qsizetype mostSuggestions = 5;
    const QStringList suggestions = checker_->suggestions(word).mid(0, mostSuggestions);
    for (const QString& suggestion : suggestions) {
        connect(add(QString(suggestion).replace(u'&', "&&"_L1)), &QAction::triggered, this,
            [cursor = mark->cursor, word, suggestion]() mutable {
                if (cursor.selectedText() == word)
                    cursor.insertText(suggestion);
            });
    }
    if (suggestions.isEmpty())
        add(FormMacOSResource::localizedString(u"FormSpellingNoSuggestions"_s))->setEnabled(false);
    menu.insertSeparator(before);
    connect(add(FormMacOSResource::localizedString(u"FormSpellingAddWord"_s)), &QAction::triggered, this,
        [this, word] { checker_->learn(word); });
    menu.insertSeparator(before);
}

} // namespace quor::formkit
