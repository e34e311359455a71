// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

/// An input of a distance in the user's units.
class FormElementDistanceInput : public virtual FormElement {
public:
    /// In metres. 0 at first. Negative while the text cannot be read.
    [[nodiscard]] virtual double value() const = 0;
    virtual void setValue(double value) = 0;
};

} // namespace quor::formkit
