// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/ElidedLabel.h"

#include <QPointer>

namespace quor::formkit {

/// The label of a row. A click on it focuses the row's input, and screen readers call the input by it, unless
/// the input has a name of its own. It is dimmed while the input is disabled.
class FormRowLabel final : public ElidedLabel {
    Q_OBJECT

public:
    using ElidedLabel::ElidedLabel;
    ~FormRowLabel() override;

    /// To be called after each change of the line. `input` may be null.
    void setInput(QWidget* input);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void nameInput(const QString& name);

    QPointer<QWidget> input_;
    QString givenName_;
};

} // namespace quor::formkit
