// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/PlainTextView.h"

#include "FormKit_macOS/Controls/WrapMode.h"
#include "FormKit_macOS/Spelling/SpellingMarks.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>
#include <optional>

namespace quor::formkit {

namespace {

QString withLineFeeds(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    constexpr QStringView breaks = u"\r\u2028\u2029\ufdd0\ufdd1"; // the last two are Qt's own
    for (QChar& character : text) {
        if (breaks.contains(character))
            character = u'\n';
    }
    return text;
}

} // namespace

PlainTextView::PlainTextView(QWidget* parent)
    : QPlainTextEdit(parent)
    , spelling_(new SpellingMarks(*this))
{
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    document()->setDocumentMargin(2); // as fields of one line have it
    viewport()->setAutoFillBackground(false);
    setTextOption(wordWrapMode());
    connect(this, &QPlainTextEdit::textChanged, this, &PlainTextView::noteChange);
}

void PlainTextView::setShownText(const QString& text)
{
    const QString shown = withLineFeeds(text);
    if (shown == shownText_)
        return;
    const QScopedValueRollback setting(isSetting_, true);
    isEdited_ = false;
    breakAnywhereIfNeeded(shown);
    setPlainText(shown);
    setTextOption(wrapModeFor(shown));
}

void PlainTextView::noteChange()
{
    // Not `toPlainText`, which replaces blanks that do not break.
    QString text = withLineFeeds(document()->toRawText());
    if (text == shownText_)
        return; // the step of an input method
    shownText_ = std::move(text);
    // Once lines break anywhere, they do until the text is set anew: undoing may bring the long word back.
    breakAnywhereIfNeeded(shownText_);
    setTextOption(wordWrapMode());
    if (isSetting_)
        return;
    isEdited_ = true;
    Q_EMIT edited();
}

void PlainTextView::breakAnywhereIfNeeded(QStringView coming)
{
    if (const auto mode = wrapModeFor(coming); mode == QTextOption::WrapAnywhere)
        setWordWrapMode(mode);
}

void PlainTextView::setTextOption(QTextOption::WrapMode wrapMode)
{
    QTextOption option = document()->defaultTextOption();
    const auto direction = shownText_.isEmpty() ? layoutDirection() : Qt::LayoutDirectionAuto;
    if (option.textDirection() != direction) {
        option.setTextDirection(direction);
        document()->setDefaultTextOption(option);
    }
    setWordWrapMode(wrapMode);
}

platform::TextRange PlainTextView::visibleRange() const
{
    std::optional<qsizetype> start;
    qsizetype end = 0;
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() >= viewport()->height())
            break;
        const QTextLayout& layout = *block.layout();
        for (int i = 0; i < layout.lineCount(); ++i) {
            const QTextLine line = layout.lineAt(i);
            if (place.top() + line.y() + line.height() <= 0 || place.top() + line.y() >= viewport()->height())
                continue;
            start = start.value_or(block.position() + line.textStart());
            end = block.position() + line.textStart() + line.textLength();
        }
    }
    const platform::TextRange range{start.value_or(0), end - start.value_or(0)};
    return range.clipped(document()->characterCount() - 1); // what is being composed has lines, too
}

std::vector<QLineF> PlainTextView::baselines(platform::TextRange range) const
{
    const QTextBlock block = document()->findBlock(int(range.location));
    const QTextLayout& layout = *block.layout();
    const QPointF origin = blockBoundingGeometry(block).translated(contentOffset()).topLeft();
    const auto placeInLayout = [&](qsizetype place) {
        const int inBlock = int(place) - block.position();
        return inBlock < layout.preeditAreaPosition() ? inBlock
                                                      : inBlock + int(layout.preeditAreaText().size());
    };
    const int start = placeInLayout(range.location);
    const int end = placeInLayout(range.end());
    std::vector<QLineF> baselines;
    const QTextLine first = layout.lineForTextPosition(start);
    for (int i = first.isValid() ? first.lineNumber() : layout.lineCount(); i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const int from = std::max(start, line.textStart());
        const int to = std::min(end, line.textStart() + line.textLength());
        if (from >= to)
            break;
        const auto [left, right] = std::minmax({line.cursorToX(from), line.cursorToX(to)});
        const double y = line.y() + line.ascent();
        baselines.push_back(QLineF(left, y, right, y).translated(origin));
    }
    return baselines;
}

bool PlainTextView::checksSpelling() const
{
    return spelling_->isEnabled();
}

void PlainTextView::setChecksSpelling(bool checks)
{
    spelling_->setEnabled(checks);
}

QSize PlainTextView::sizeHint() const
{
    constexpr int lines = 5;
    constexpr int characters = 17; // as fields of one line
    const int margin = int(document()->documentMargin());
    const int rest = 3 * margin + 1; // else Qt would let the five lines be scrolled
    return {characters * fontMetrics().horizontalAdvance(u'x') + 2 * margin,
        lines * fontMetrics().lineSpacing() + rest};
}

void PlainTextView::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        setTextOption(wordWrapMode());
    else if (event->type() == QEvent::FontChange)
        updateGeometry();
}

bool PlainTextView::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasHtml() || QPlainTextEdit::canInsertFromMimeData(source);
}

void PlainTextView::insertFromMimeData(const QMimeData* source)
{
    const bool isRich = source->hasHtml() && !source->hasText();
    QMimeData plain;
    plain.setText(isRich ? QTextDocumentFragment::fromHtml(source->html()).toPlainText() : source->text());
    breakAnywhereIfNeeded(plain.text());
    QPlainTextEdit::insertFromMimeData(&plain);
}

void PlainTextView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    QMenu* const menu = createStandardContextMenu(event->pos());
    if (!menu)
        return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    spelling_->addActions(*menu, isByKeyboard ? textCursor() : cursorForPosition(event->pos()));
    menu->popup(isByKeyboard ? viewport()->mapToGlobal(cursorRect().bottomLeft()) : event->globalPos());
}

void PlainTextView::paintEvent(QPaintEvent* event)
{
    QPlainTextEdit::paintEvent(event);
    QPainter painter(viewport());
    spelling_->paint(painter, event->rect());
}

void PlainTextView::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    const auto reason = event->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
        Q_EMIT endedEditing();
}

} // namespace quor::formkit
