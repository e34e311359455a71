// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormDetailElement.h"

namespace quor::formkit {

/// A small button that shows an explanation.
class FormElementDetailInfoButton : public virtual FormDetailElement {
public:
    [[nodiscard]] virtual QString infoText() const = 0;
    virtual void setInfoText(const QString& infoText) = 0;
};

} // namespace quor::formkit
