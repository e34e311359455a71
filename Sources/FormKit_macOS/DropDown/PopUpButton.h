// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/FirstBaseline.h"

#include <QAbstractButton>
#include <QPointer>

class QStyleOptionComboBox;

namespace quor::formkit {

/// A button that looks like a closed drop-down, with the name of the chosen item. It opens nothing itself:
/// its owner does, on `clicked`, which the arrow keys up and down and F4 cause as well, and on `typed`. The
/// wheel does not change it. Main thread only.
class PopUpButton final : public QAbstractButton, public FirstBaselineProvider {
    Q_OBJECT

public:
    explicit PopUpButton(QWidget* parent = nullptr);

    /// The only entry. Shown in one line, cut where it does not fit; a tool tip shows all of it then.
    [[nodiscard]] QString title() const { return title_; }
    void setTitle(const QString& title);

    /// Whether typed text is reported. False at first.
    void setTakesText(bool takesText);

    /// Shows that the list is open. What an input method composes goes to `receiver`, which may be null, as
    /// long as it exists: input methods only know the window of this button.
    void setOpen(bool isOpen, QWidget* receiver);
    [[nodiscard]] bool isOpen() const { return isOpen_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int firstBaseline() const override;
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

Q_SIGNALS:
    /// The user typed this text. Empty if an input method has begun to compose, which goes to the receiver
    /// that is set in answer to this.
    void typed(const QString& text);

protected:
    bool event(QEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void initStyleOption(QStyleOptionComboBox& option) const;
    [[nodiscard]] QRect titleRect() const;
    [[nodiscard]] QString elided() const;
    [[nodiscard]] QSize sizeFor(int letters) const;

    QString title_;
    bool takesText_ = false;
    bool isOpen_ = false;
    QPointer<QWidget> receiver_;
};

} // namespace quor::formkit
