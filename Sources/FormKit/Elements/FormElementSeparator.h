// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

/// A line between rows. Of several separators in a row only the first is shown.
class FormElementSeparator : public virtual FormElement {
public:
    /// Whether the row is only a small gap, without a line. False at first.
    [[nodiscard]] virtual bool isTransparent() const = 0;
    virtual void setTransparent(bool isTransparent) = 0;
};

} // namespace quor::formkit
