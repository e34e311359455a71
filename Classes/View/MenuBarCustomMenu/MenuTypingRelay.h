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

/// Lets a user type into the search field of a list while the list has the keyboard: text, deletions,
/// pasting and the compositions of input methods go to the field, and the keyboard follows them. Off
/// until there is a row of the field. Main thread only.
class MenuTypingRelay final : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the relay.
    MenuTypingRelay(platform::TableView& table, QLineEdit& field);

    /// The row that shows the field; -1 for none, which leaves the typing to the table.
    void setFieldRow(int row);

    /// An input method is at work on text that it has not handed over yet.
    [[nodiscard]] bool isComposing() const { return composing_; }
    /// The table gets the keyboard in the middle of a text: a space belongs to the text until the
    /// keyboard goes elsewhere.
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
    int fieldRow_ = -1;
    bool composing_ = false;
    bool interruptsTyping_ = false;
    bool relaysKey_ = false;
};

} // namespace quor::helper
