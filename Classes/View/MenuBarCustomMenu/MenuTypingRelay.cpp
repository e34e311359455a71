// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuTypingRelay.h"

#include "Platform/Views/Table/TableView.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace quor::helper {

MenuTypingRelay::MenuTypingRelay(platform::TableView& table, QLineEdit& field)
    : table_(table)
    , field_(field)
{
    table.installEventFilter(this);
    field.installEventFilter(this);
}

void MenuTypingRelay::setSearchRow(int row)
{
    searchRow_ = row;
    // Otherwise input methods and dead keys send the table the single letters before they combine them.
    table_.setAttribute(Qt::WA_InputMethodEnabled, row >= 0);
}

int MenuTypingRelay::fieldRow() const
{
    const int shownAt = table_.rowForView(&field_);
    return shownAt < 0 ? searchRow_ : shownAt;
}

bool MenuTypingRelay::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &field_) {
        if (event->type() == QEvent::InputMethod)
            composing_ = !static_cast<QInputMethodEvent*>(event)->preeditString().isEmpty();
        else if (event->type() == QEvent::FocusOut)
            composing_ = false;
        return false;
    }
    if (event->type() == QEvent::FocusOut)
        interruptsTyping_ = false;
    if (searchRow_ < 0)
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return relayKey(*static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod:
        relayInput(*static_cast<QInputMethodEvent*>(event));
        return true;
    case QEvent::InputMethodQuery:
        relayQuery(*static_cast<QInputMethodQueryEvent*>(event));
        return true;
    default:
        return false;
    }
}

bool MenuTypingRelay::relayKey(QKeyEvent& event)
{
    if (relaysKey_ || !isTyping(event))
        return false;
    const QScopedValueRollback relays(relaysKey_, true); // a key that the field ignores goes to the table
    focusField();
    QCoreApplication::sendEvent(&field_, &event);
    return true;
}

bool MenuTypingRelay::isTyping(const QKeyEvent& event) const
{
    if (event.matches(QKeySequence::Paste))
        return true;
    const QString text = event.text();
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (isCommand || text.isEmpty())
        return false;
    if (event.key() == Qt::Key_Backspace)
        return !field_.text().isEmpty();
    if (text.at(0) == QLatin1Char(' '))
        return interruptsTyping_; // otherwise it chooses the selected row
    return text.at(0).isPrint() || text.at(0).isHighSurrogate();
}

void MenuTypingRelay::relayInput(QInputMethodEvent& event)
{
    // The table keeps the keyboard until text is committed, since a change of focus ends a composition.
    if (!composing_ && !interruptsTyping_)
        field_.end(false);
    QCoreApplication::sendEvent(&field_, &event);
    if (!composing_ && !event.commitString().isEmpty())
        focusField();
}

void MenuTypingRelay::relayQuery(QInputMethodQueryEvent& event)
{
    QCoreApplication::sendEvent(&field_, &event);
    for (const Qt::InputMethodQuery place : {Qt::ImCursorRectangle, Qt::ImAnchorRectangle}) {
        if (!event.queries().testFlag(place))
            continue;
        const QRectF inField = event.value(place).toRectF();
        event.setValue(place, inField.translated(field_.mapTo(&table_, QPoint())));
    }
}

void MenuTypingRelay::focusField()
{
    table_.scrollRowToVisible(fieldRow());
    // An interrupted text continues at its caret. Otherwise the field moves the caret to the end.
    field_.setFocus(interruptsTyping_ ? Qt::ActiveWindowFocusReason : Qt::OtherFocusReason);
}

} // namespace quor::helper
