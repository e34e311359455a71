// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"
#include "ToolKit/Colors/ColorModel.h"

#include <QColor>

namespace quor::formkit {

/// An input of a colour.
class FormElementColorPicker : public virtual FormElement {
public:
    /// The colours that the user can choose with one click.
    [[nodiscard]] virtual const toolkit::ColorModel& colorModel() const = 0;
    virtual void setColorModel(toolkit::ColorModel colorModel) = 0;

    [[nodiscard]] virtual QColor value() const = 0;
    virtual void setValue(const QColor& value) = 0;
};

} // namespace quor::formkit
