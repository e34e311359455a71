// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/ElidedLabel.h"

#include <QPointer>

#include <memory>

namespace quor::formkit {

class FormElement;

/// The label of a row. A click on it focuses the row's input, and screen readers call the input by it, unless
/// the input has a name of its own. It is dimmed while the row's element is disabled, but not while only a
/// part of the row is.
class FormRowLabel final : public ElidedLabel {
    Q_OBJECT

public:
    using ElidedLabel::ElidedLabel;
    ~FormRowLabel() override;

    /// To be called after each change of the line or the row. Both may be null.
    void setRow(QWidget* input, const std::shared_ptr<const FormElement>& element);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void nameInput(const QString& name);
    void updateEnabled();

    QPointer<QWidget> input_;
    std::weak_ptr<const FormElement> element_;
    QString givenName_;
};

} // namespace quor::formkit
