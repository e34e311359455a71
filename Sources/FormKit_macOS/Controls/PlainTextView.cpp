// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/PlainTextView.h"

#include "FormKit_macOS/Controls/WrapMode.h"
#include "FormKit_macOS/Spelling/SpellingMarks.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTextDocumentFragment>

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
    updateTextOption();
    connect(this, &QPlainTextEdit::textChanged, this, &PlainTextView::noteChange);
}

void PlainTextView::setShownText(const QString& text)
{
    const QString shown = withLineFeeds(text);
    if (shown == shownText_)
        return;
    const QScopedValueRollback setting(isSetting_, true);
    isEdited_ = false;
    setPlainText(shown);
}

void PlainTextView::noteChange()
{
    // Not `toPlainText`, which replaces blanks that do not break.
    QString text = withLineFeeds(document()->toRawText());
    if (text == shownText_)
        return; // the step of an input method
    shownText_ = std::move(text);
    updateTextOption();
    if (isSetting_)
        return;
    isEdited_ = true;
    Q_EMIT edited();
}

void PlainTextView::updateTextOption()
{
    QTextOption option = document()->defaultTextOption();
    const auto wrapMode = wrapModeFor(shownText_);
    const auto direction = shownText_.isEmpty() ? layoutDirection() : Qt::LayoutDirectionAuto;
    if (option.wrapMode() == wrapMode && option.textDirection() == direction)
        return;
    option.setTextDirection(direction);
    document()->setDefaultTextOption(option);
    setWordWrapMode(wrapMode);
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
    const int margins = 2 * int(document()->documentMargin());
    return {characters * fontMetrics().horizontalAdvance(u'x') + margins,
        lines * fontMetrics().lineSpacing() + margins};
}

void PlainTextView::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        updateTextOption();
    else if (event->type() == QEvent::FontChange)
        updateGeometry();
}

bool PlainTextView::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasHtml() || QPlainTextEdit::canInsertFromMimeData(source);
}

void PlainTextView::insertFromMimeData(const QMimeData* source)
{
    if (source->hasText() || !source->hasHtml()) {
        QPlainTextEdit::insertFromMimeData(source);
        return;
    }
    QMimeData plain;
    plain.setText(QTextDocumentFragment::fromHtml(source->html()).toPlainText());
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

void PlainTextView::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    const auto reason = event->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
        Q_EMIT endedEditing();
}

} // namespace quor::formkit
