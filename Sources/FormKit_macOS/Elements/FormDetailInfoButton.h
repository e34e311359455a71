// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementDetailInfoButton.h"
#include "FormKit_macOS/Elements/FormDetailBase.h"
#include "FormKit_macOS/Panels/InfoView.h"

#include <QPointer>

namespace quor::formkit {

/// A small button that shows a plain text in an `InfoView`. A second click closes it. Has no value, so it
/// never has changes and never calls `valueChanged`.
class FormDetailInfoButton final : public FormDetailBase, public FormElementDetailInfoButton {
public:
    FormDetailInfoButton();
    ~FormDetailInfoButton() override;

    [[nodiscard]] QString infoText() const override { return infoText_; }
    /// Shown from the next click on. A click shows nothing while it is empty.
    void setInfoText(const QString& infoText) override;

    /// Null while there is none.
    [[nodiscard]] InfoView* infoView() const { return infoView_; }

    void setEnabled(bool enabled) override;

protected:
    void updateButton() override;

private:
    void open();
    void close();

    QString infoText_;
    QPointer<InfoView> infoView_;
};

} // namespace quor::formkit
