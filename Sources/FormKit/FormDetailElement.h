// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QString>

class QWidget;

namespace quor::formkit {

/// A small control at the end of an element's row. It has no row, label or form of its own. Main thread only.
class FormDetailElement {
public:
    virtual ~FormDetailElement() = default;

    /// Owned by the detail element. Never null.
    [[nodiscard]] virtual QWidget* view() const = 0;

    [[nodiscard]] virtual bool enabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;

    [[nodiscard]] virtual QString toolTip() const = 0;
    virtual void setToolTip(const QString& toolTip) = 0;

    /// Whether the user has changed the value. Forms do not ask for it.
    [[nodiscard]] virtual bool hasChanges() const = 0;
    virtual void setHasChanges(bool hasChanges) = 0;

    /// Called after the user has changed the value.
    using ValueChanged = platform::Callback<void(FormDetailElement&)>;
    [[nodiscard]] virtual ValueChanged valueChanged() const = 0;
    virtual void setValueChanged(ValueChanged valueChanged) = 0;

protected:
    FormDetailElement() = default;
    FormDetailElement(const FormDetailElement&) = default;
    FormDetailElement& operator=(const FormDetailElement&) = default;
};

} // namespace quor::formkit
