// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QInputMethodEvent;
class QInputMethodQueryEvent;
class QKeyEvent;
class QLineEdit;

namespace quor::platform {
class TableView;
}

namespace quor::helper {

/// Lets the user type into the search field of a list while the list has the keyboard: text, Backspace,
/// pasting and the compositions of input methods go to the field, which then gets the keyboard. Inactive
/// until `setSearchRow` names a row. Main thread only.
class MenuTypingRelay final : public QObject {
    Q_OBJECT

public:
    /// Borrows both, which must outlive the relay.
    MenuTypingRelay(platform::TableView& table, QLineEdit& field);

    /// A row that shows the field when the user scrolls there; -1 if no row does, and then the table keeps
    /// what is typed.
    void setSearchRow(int row);
    /// The row that shows the field now, otherwise the one of `setSearchRow`.
    [[nodiscard]] int fieldRow() const;

    /// Returns true while an input method composes a text that it has not committed yet.
    [[nodiscard]] bool isComposing() const { return composing_; }
    /// Call this when the table gets the keyboard while the user is typing a text: until the table loses
    /// the keyboard, a space then belongs to the text and does not choose the selected row.
    void setInterruptsTyping(bool interrupts) { interruptsTyping_ = interrupts; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool relayKey(QKeyEvent& event);
    [[nodiscard]] bool isTyping(const QKeyEvent& event) const;
    void relayInput(QInputMethodEvent& event);
    void relayQuery(QInputMethodQueryEvent& event);
    void focusField();

    platform::TableView& table_;
    QLineEdit& field_;
    int searchRow_ = -1;
    bool composing_ = false;
    bool interruptsTyping_ = false;
    bool relaysKey_ = false;
};

} // namespace quor::helper
