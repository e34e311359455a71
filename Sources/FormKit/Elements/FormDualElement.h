// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

/// A row of two elements side by side. Each keeps its own handlers.
class FormDualElement : public virtual FormElement {
public:
    [[nodiscard]] virtual FormElement& leftElement() const = 0;
    [[nodiscard]] virtual FormElement& rightElement() const = 0;
};

} // namespace quor::formkit
