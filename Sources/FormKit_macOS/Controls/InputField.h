// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace quor::formkit {

/// A field for one line of text of any length. It tells texts that the user enters, by whatever means, from
/// those that are set from code. Line breaks that the user pastes become blanks. Main thread only.
class InputField : public QLineEdit {
    Q_OBJECT

public:
    explicit InputField(QWidget* parent = nullptr);

    /// Shows `text`, which is no change by the user.
    void setShownText(const QString& text);

    /// Whether the user has changed the text that was last set from code.
    [[nodiscard]] bool isEdited() const { return isEdited_; }

Q_SIGNALS:
    /// The user has changed the text.
    void edited();
    /// The Return key was pressed, except that of the numeric keypad. Emitted before the key does anything
    /// else, and once for a key that is held down.
    void returnKeyPressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void noteChange();

    bool isSetting_ = false;
    bool isEdited_ = false;
};

} // namespace quor::formkit
