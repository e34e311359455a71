// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QObject>
#include <QPointer>
#include <QPushButton>

#include <memory>

class QKeyEvent;

namespace quor::formkit {

class FormElement;

/// Lets the Return key in a form press its default button, and shows which button that is.
///
/// A view that uses the key itself, as a text of several lines does, gets it first. A push button that has
/// the keyboard is pressed itself. Main thread only.
class DefaultButton final : public QObject {
    Q_OBJECT

public:
    /// Owned by `form`, the view whose keys count.
    explicit DefaultButton(QWidget& form);

    /// `button` is the control of `element`; both null for none. Shown as default from now on.
    void setButton(const std::shared_ptr<FormElement>& element, QPushButton* button);

    /// Called before the default button is pressed.
    platform::Callback<void(QWidget& button)> willPress;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool press(const QKeyEvent& event);

    QWidget& form_;
    std::weak_ptr<FormElement> element_;
    QPointer<QPushButton> button_;
};

} // namespace quor::formkit
