// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormDetailElement.h"

#include <optional>

namespace quor::formkit {

/// A small button that is on or off.
class FormElementDetailActionButton : public virtual FormDetailElement {
public:
    /// The names of the images of the two states, in the application's resources.
    [[nodiscard]] virtual std::optional<QString> offImageName() const = 0;
    virtual void setOffImageName(const std::optional<QString>& name) = 0;
    [[nodiscard]] virtual std::optional<QString> onImageName() const = 0;
    virtual void setOnImageName(const std::optional<QString>& name) = 0;

    [[nodiscard]] virtual std::optional<QString> title() const = 0;
    virtual void setTitle(const std::optional<QString>& title) = 0;

    [[nodiscard]] virtual bool isOn() const = 0;
    virtual void setOn(bool isOn) = 0;

    /// The tool tip while the button is on.
    [[nodiscard]] virtual QString isOnToolTip() const = 0;
    virtual void setIsOnToolTip(const QString& toolTip) = 0;
};

} // namespace quor::formkit
