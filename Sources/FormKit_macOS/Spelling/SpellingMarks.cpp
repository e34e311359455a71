// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Spelling/SpellingMarks.h"

#include "FormKit_macOS/Controls/PlainTextView.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "FormKit_macOS/Spelling/SpellChecker.h"
#include "FormKit_macOS/Spelling/SpelledWords.h"

#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QPolygonF>
#include <QScrollBar>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using quor::platform::TextRange;

namespace quor::formkit {

namespace {

QColor lineColor(const QPalette& palette)
{
    constexpr int dark = 128;
    return palette.color(QPalette::Base).lightness() < dark ? QColor(0xff7b72) : QColor(0xd1242f);
}

/// The teeth are at the same places whatever the word, so that a line that grows does not move.
QPolygonF waveBelow(const QLineF& baseline)
{
    constexpr int step = 2;
    constexpr double distance = 1.5;
    constexpr double height = 2;
    QPolygonF wave;
    for (int i = int(baseline.x1()) / step; i * step <= baseline.x2(); ++i)
        wave << QPointF(i * step, baseline.y1() + distance + (i % 2 == 0 ? 0 : height));
    return wave;
}

TextRange rangeOf(const QTextCursor& mark)
{
    return {mark.selectionStart(), mark.selectionEnd() - mark.selectionStart()};
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
    const TextRange visible = view_.visibleRange();
    std::vector<TextRange> misspelled;
    for (QTextBlock block = view_.document()->findBlock(int(visible.location));
         block.isValid() && block.position() <= visible.end(); block = block.next()) {
        const int from = std::max(int(visible.location) - block.position(), 0);
        const int to = std::min(int(visible.end()) - block.position(), block.length() - 1);
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
    const bool isComposing = !layout.preeditAreaText().isEmpty();
    for (TextRange word : spelledWords(part)) {
        word.location += start;
        if (word.end() < from || word.location > to
            || (isComposing && contains(word, layout.preeditAreaPosition())))
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
    const auto isShown = [](const QTextCursor& mark, TextRange word) { return rangeOf(mark) == word; };
    if (std::equal(marks_.begin(), marks_.end(), words.begin(), words.end(), isShown))
        return;
    marks_.clear();
    for (const TextRange word : words) {
        QTextCursor& mark = marks_.emplace_back(view_.document());
        mark.setPosition(int(word.location));
        mark.setPosition(int(word.end()), QTextCursor::KeepAnchor);
    }
    view_.viewport()->update();
}

void SpellingMarks::paint(QPainter& painter, const QRect& area) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(lineColor(view_.palette()));
    for (const QTextCursor& mark : marks_) {
        for (const QLineF& baseline : view_.baselines(rangeOf(mark))) {
            const QPolygonF wave = waveBelow(baseline);
            if (wave.boundingRect().intersects(area))
                painter.drawPolyline(wave);
        }
    }
}

void SpellingMarks::addActions(QMenu& menu, const QTextCursor& place)
{
    const auto mark = std::find_if(marks_.begin(), marks_.end(),
        [&](const QTextCursor& candidate) { return contains(rangeOf(candidate), place.position()); });
    if (mark == marks_.end() || !checker_)
        return;
    const QString word = mark->selectedText();
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
            [cursor = *mark, word, suggestion]() mutable {
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
