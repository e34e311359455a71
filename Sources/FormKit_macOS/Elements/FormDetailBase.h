// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormDetailElement.h"
#include "FormKit_macOS/Controls/DetailToolButton.h"
#include "Platform/Lifetime/Trackable.h"
#include "Platform/Views/WidgetHandle.h"

#include <utility>

namespace quor::formkit {

/// Base class of the detail elements of this module, each of which is a small button. Main thread only.
class FormDetailBase : public virtual FormDetailElement, public platform::Trackable {
public:
    [[nodiscard]] QWidget* view() const override { return button_.get(); }
    [[nodiscard]] bool enabled() const override { return enabled_; }
    void setEnabled(bool enabled) override
    {
        enabled_ = enabled;
        if (button_)
            button_->setEnabled(enabled);
    }
    [[nodiscard]] QString toolTip() const override { return toolTip_; }
    /// Plain text, and also the name of a button without a title for screen readers.
    void setToolTip(const QString& toolTip) override
    {
        toolTip_ = toolTip;
        updateButton();
    }
    [[nodiscard]] bool hasChanges() const override { return hasChanges_; }
    void setHasChanges(bool hasChanges) override { hasChanges_ = hasChanges; }
    [[nodiscard]] ValueChanged valueChanged() const override { return valueChanged_; }
    void setValueChanged(ValueChanged valueChanged) override { valueChanged_ = std::move(valueChanged); }

protected:
    FormDetailBase() = default;

    /// Shows the present state. Called after a change.
    virtual void updateButton() = 0;
    /// Null after a parent has deleted it.
    [[nodiscard]] DetailToolButton* button() const { return button_.get(); }
    /// Calls `valueChanged`. This element may have ended when it returns.
    void notifyValueChanged() { valueChanged_(*this); }

private:
    platform::WidgetHandle<DetailToolButton> button_ = platform::makeWidget<DetailToolButton>();
    bool enabled_ = true;
    QString toolTip_;
    bool hasChanges_ = false;
    ValueChanged valueChanged_;
};

} // namespace quor::formkit
